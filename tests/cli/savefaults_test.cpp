// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Every way vorel-cli saves, onto a disk that fills up half-way through the write: the save
// fails, no partial or empty file and no temporary file stays, the original a rewrite was
// meant to replace keeps its bytes, and the same command succeeds once there is room.
#include <QDirIterator>
#include <QImage>

#include <gtest/gtest.h>

#include <sys/mount.h>
#include <sys/statvfs.h>

#include "tests/cli/clirun.h"

using namespace Vorel::CliTest;

namespace {

const QString sbs = QStringLiteral("stereo/02-super-mario.jpg");

// A small tmpfs at `folder` holding `files` (test data, name), filled up to `room` free bytes.
class FullDisk {
public:
    FullDisk(const QString &folder, const std::vector<std::pair<QString, QString>> &files, qint64 room)
        : folder(folder)
    {
        QDir().mkpath(folder);
        mounted = mount("tmpfs", QFile::encodeName(folder).constData(), "tmpfs", 0, "size=2m") == 0;
        if (!mounted || !copyData(folder, files))
            return;
        struct statvfs disk {};
        statvfs(QFile::encodeName(folder).constData(), &disk);
        QFile filler(folder + QStringLiteral("/filler"));
        filler.open(QIODevice::WriteOnly);
        filler.write(QByteArray(qsizetype(qint64(disk.f_bavail * disk.f_frsize) - room), 'x'));
    }
    ~FullDisk()
    {
        if (mounted)
            umount(QFile::encodeName(folder).constData());
    }
    bool isMounted() const { return mounted; }

private:
    QString folder;
    bool mounted = false;
};

struct SaveCase {
    const char *name;
    QStringList arguments; // "IN" and "DISK" stand for the input and the full folder
    std::vector<std::pair<QString, QString>> onDisk; // files already there, which must not change
    qint64 room;
};

QStringList substituted(QStringList arguments, const QString &in, const QString &disk)
{
    for (QString &argument : arguments)
        argument.replace(QStringLiteral("IN"), in).replace(QStringLiteral("DISK"), disk);
    return arguments;
}

// Path relative to `folder` -> bytes, of every file under it but the filler, hidden ones too.
std::map<QString, QByteArray> filesUnder(const QString &folder)
{
    std::map<QString, QByteArray> files;
    for (QDirIterator it(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories); it.hasNext();) {
        const QString path = it.next();
        if (it.fileName() != QLatin1String("filler"))
            files[QDir(folder).relativeFilePath(path)] = readAll(path);
    }
    return files;
}

TEST(SaveFaults, DiskFullHalfWayThroughEverySave)
{
    const QStringList convert{QStringLiteral("convert")};
    const auto args = [&](std::initializer_list<const char *> list) {
        QStringList arguments = convert;
        for (const char *a : list)
            arguments << QLatin1String(a);
        return arguments;
    };
    const SaveCase cases[] = {
        {"JPEG", args({"IN/sbs.jpg", "DISK/out.jpg"}), {}, 8192},
        {"PNG", args({"IN/sbs.jpg", "DISK/out.png"}), {}, 8192},
        {"TIFF", args({"IN/sbs.jpg", "DISK/out.tif"}), {}, 8192},
        {"HEIC", args({"IN/sbs.jpg", "DISK/out.heic"}), {}, 8192},
        {"MPO", args({"--output", "mpo", "IN/sbs.jpg", "DISK/out.mpo"}), {}, 8192},
        {"JPS", args({"--output", "jps", "IN/sbs.jpg", "DISK/out.jps"}), {}, 8192},
        {"spatial photo", args({"--output", "spatial", "IN/sbs.jpg", "DISK/out.heic"}), {}, 8192},
        // Room for the left view, not for both: neither file of the pair may stay.
        {"separate views", args({"--output", "separate", "IN/sbs.jpg", "DISK/out.jpg"}), {}, 120 * 1024},
        {"overwriting an earlier output", args({"--yes", "IN/sbs.jpg", "DISK/out.jpg"}), {{sbs, "out.jpg"}}, 8192},
        {"orientation of a JPEG in place", {"orientation", "6", "DISK/hopper.jpg"},
         {{"orientation/hopper.jpg", "hopper.jpg"}}, 2048},
        {"orientation of a HEIC in place", {"orientation", "3", "DISK/vision-pro.HEIC"},
         {{"heic/vision-pro.HEIC", "vision-pro.HEIC"}}, 8192},
        {"thumbnail cache", {"library", "--thumbnails", "IN"}, {}, 16384},
    };
    for (const SaveCase &c : cases) {
        QTemporaryDir dir, config;
        const QString in = dir.filePath(QStringLiteral("in")), disk = dir.filePath(QStringLiteral("disk"));
        ASSERT_TRUE(copyData(in, {{sbs, "sbs.jpg"}}));
        std::map<QString, QByteArray> before;
        {
            const FullDisk full(disk, c.onDisk, c.room);
            if (!full.isMounted())
                GTEST_SKIP() << "a small tmpfs cannot be mounted here, so a full disk cannot be made";
            before = filesUnder(disk);
            qputenv("XDG_CACHE_HOME", QFile::encodeName(disk));
            QProcess run;
            startCli(run, substituted(c.arguments, in, disk), config.path());
            ASSERT_TRUE(run.waitForFinished(120000)) << c.name;
            const QString errors = QString::fromUtf8(run.readAllStandardError());
            EXPECT_EQ(run.exitStatus(), QProcess::NormalExit) << c.name;
            if (c.arguments.first() != QLatin1String("library")) // thumbnails are made on a best-effort basis
                EXPECT_EQ(run.exitCode(), 1) << c.name << errors.toStdString();
            for (const auto &[name, bytes] : filesUnder(disk))
                if (before.count(name))
                    EXPECT_TRUE(before.at(name) == bytes) << c.name << ": changed " << name.toStdString();
                else
                    EXPECT_FALSE(QImage(disk + QLatin1Char('/') + name).isNull())
                        << c.name << ": left behind " << name.toStdString();
        }
        ASSERT_TRUE(copyData(disk, c.onDisk));
        const CliRun again = runCli(substituted(c.arguments, in, disk), config.path());
        qunsetenv("XDG_CACHE_HOME");
        EXPECT_EQ(again.exitCode, 0) << c.name << " with room: " << again.err.toStdString();
    }
}

} // namespace
