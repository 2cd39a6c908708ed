// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// VOREL_AVX2_CLONES compiles a function twice, for AVX2 and for the baseline, and picks one
// when the program is loaded (an ifunc). Both clones give identical bits.
//
// ThreadSanitizer instruments the ifunc's resolver too, and the loader calls it before the
// sanitizer's run-time is set up, so a thread-sanitized program would die before main: those
// builds keep only the baseline.
#pragma once

#if defined(__SANITIZE_THREAD__)
#define VOREL_AVX2_CLONES
#elif defined(__has_feature)
#if __has_feature(thread_sanitizer)
#define VOREL_AVX2_CLONES
#endif
#endif

#ifndef VOREL_AVX2_CLONES
#define VOREL_AVX2_CLONES __attribute__((target_clones("avx2", "default")))
#endif
