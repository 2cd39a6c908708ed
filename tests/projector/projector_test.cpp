// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Projection on three offscreen screens: window placement per mode, restarting, screens going
// away, Esc, the projected view following the main view, and closing the main window.
#include <QCheckBox>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

#include "app/mainwindow.h"
#include "core/preferences.h"
#include "projector/fitimageview.h"
#include "projector/projectorlink.h"
#include "projector/sbsprojectorview.h"
#include "tests/testsupport.h"

using namespace Vorel;

namespace {

// A picture whose colour tells where in it a pixel lies: red grows to the right, green downwards.
QImage positionCoded(int width, int height, int blue)
{
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
        auto *row = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < width; ++x)
            row[x] = qRgb(x * 255 / (width - 1), y * 255 / (height - 1), blue);
    }
    return image;
}

std::vector<ProjectorScreen> screensOf(const QList<QScreen *> &screens)
{
    std::vector<ProjectorScreen> result;
    for (QScreen *screen : screens)
        result.push_back({screen->geometry(), screen});
    return result;
}

QScreen *screenNamed(const QString &name)
{
    for (QScreen *screen : QGuiApplication::screens())
        if (screen->name() == name)
            return screen;
    return nullptr;
}

// Same place in the picture: red and green agree up to the smoothing of the scaled drawing.
bool samePlace(QRgb a, QRgb b)
{
    return std::abs(qRed(a) - qRed(b)) <= 3 && std::abs(qGreen(a) - qGreen(b)) <= 3;
}

} // namespace

class ProjectorTest : public QObject {
    Q_OBJECT

    const QImage left = positionCoded(2400, 1600, 0);
    const QImage right = positionCoded(2400, 1600, 255);
    QTemporaryDir dir;
    const QString leftPath = dir.filePath(QStringLiteral("l.png")), rightPath = dir.filePath(QStringLiteral("r.png"));

private slots:
    void initTestCase() { QVERIFY(left.save(leftPath) && right.save(rightPath)); }

    void splitAlternatesLeftAndRightOverTheScreens()
    {
        ProjectorManager manager;
        const auto screens = screensOf(QGuiApplication::screens());
        QCOMPARE(screens.size(), size_t(3));
        manager.start(screens, ProjectionMode::splitLR, {left, right});
        QCOMPARE(manager.projectorWindows.size(), size_t(3));
        const QImage expected[] = {left, right, left};
        for (size_t i = 0; i < 3; ++i) {
            const ProjectorWindowController &controller = *manager.projectorWindows[i];
            QVERIFY(controller.singleView && !controller.sbsView);
            QCOMPARE(controller.singleView->image().cacheKey(), expected[i].cacheKey());
            QCOMPARE(controller.window()->geometry(), screens[i].geometry);
            QCOMPARE(controller.window()->screen(), screens[i].screen);
            const Qt::WindowFlags flags = controller.window()->windowFlags();
            QVERIFY(flags.testFlags(Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::WindowTransparentForInput));
        }
    }

    void sideBySideFitsBothHalvesAroundTheDivider()
    {
        ProjectorManager manager;
        manager.start(screensOf({screenNamed(QStringLiteral("two"))}), ProjectionMode::sbs, {left, right});
        const SBSProjectorView *sbs = manager.projectorWindows.front()->sbsView;
        QVERIFY(sbs);
        QCOMPARE(sbs->size(), QSize(1024, 768));
        QCOMPARE(sbs->leftView->geometry(), QRect(0, 0, 512, 768));
        QCOMPARE(sbs->divider->geometry(), QRect(512, 0, 1, 768));
        QCOMPARE(sbs->rightView->geometry(), QRect(513, 0, 511, 768));
        QCOMPARE(sbs->leftView->scale(), 512.0 / 2400);
        QCOMPARE(sbs->leftView->offset(), QPointF());
    }

    void startingAgainClosesTheFirstWindows()
    {
        ProjectorManager manager;
        manager.start(screensOf(QGuiApplication::screens()), ProjectionMode::splitLR, {left, right});
        QList<QPointer<QWidget>> first;
        for (const auto &controller : manager.projectorWindows)
            first << controller->window();
        manager.start(screensOf({screenNamed(QStringLiteral("three"))}), ProjectionMode::single, {left, right, right});
        for (const QPointer<QWidget> &window : first)
            QVERIFY(window.isNull());
        QCOMPARE(manager.projectorWindows.size(), size_t(1));
        QCOMPARE(manager.projectorWindows.front()->singleView->image().cacheKey(), right.cacheKey());
        QVERIFY(manager.isProjecting);
    }

    // An interlaced display image goes to "Single picture" screens unscaled: centred, cropped when
    // larger, each screen row one picture row, and it stays so when the main view zooms.
    void interlacedSinglePictureIsShownPixelForPixel()
    {
        MainWindow window(std::make_unique<Preferences>(dir.filePath(QStringLiteral("i.ini"))));
        window.show();
        QVERIFY(window.openPaths({leftPath, rightPath}));
        window.setDisplayMode(DisplayMode::rowInterlaced);
        const struct {
            const char *screen;
            QImage picture; // none: the window's display image (2400 x 1600)
        } rows[] = {{"two", QImage()}, {"three", positionCoded(301, 201, 128)}};
        for (const auto &row : rows) {
            const QImage picture = row.picture.isNull() ? *window.displayImage() : row.picture;
            if (row.picture.isNull())
                window.projector()->start(screensOf({screenNamed(QString::fromLatin1(row.screen))}), ProjectionMode::single);
            else
                window.projector()->manager.start(screensOf({screenNamed(QString::fromLatin1(row.screen))}),
                                                  ProjectionMode::single, {left, right, picture, true});
            window.projector()->manager.syncTransform(2, 0.1, 0.9);
            FitImageView *projected = window.projector()->manager.projectorWindows.front()->singleView;
            const QImage seen = projected->grab().toImage().convertToFormat(QImage::Format_RGB32);
            const QPoint corner((seen.width() - picture.width()) / 2, (seen.height() - picture.height()) / 2);
            for (const QPoint at : {QPoint(100, 100), QPoint(101, 101), QPoint(150, 199), QPoint(300, 200)}) {
                const QPoint shown = at + QPoint(std::max(corner.x(), 0), std::max(corner.y(), 0));
                QCOMPARE(QColor(seen.pixel(shown)), QColor(picture.pixel(shown - corner)));
            }
        }
        window.projector()->stop();
    }

    void panelListsScreensAndFollowsTheirRemoval()
    {
        std::vector<ProjectorScreen> offered =
            screensOf({screenNamed(QStringLiteral("one")), screenNamed(QStringLiteral("two")), screenNamed(QStringLiteral("three"))});
        ProjectorLink link(nullptr, [this] { return ProjectedPictures{left, right, QImage()}; },
                           [&offered] { return offered; });
        QStringList alerts;
        link.alert = [&alerts](const QString &text) { alerts << text; };
        link.showPanel();
        ProjectorSelectionPanel *panel = link.panel();
        QCOMPARE(panel->checkboxes.size(), size_t(3));
        QCOMPARE(panel->checkboxes[1]->text(), QStringLiteral("Screen 2  (1024 × 768)"));

        panel->startButton->click();
        QCOMPARE(alerts, QStringList{QStringLiteral("Please select at least one screen.")});
        QVERIFY(!link.manager.isProjecting);

        panel->checkboxes[0]->setChecked(true);
        panel->checkboxes[2]->setChecked(true);
        panel->startButton->click();
        QCOMPARE(link.manager.projectorWindows.size(), size_t(2));
        QVERIFY(!panel->startButton->isEnabled() && panel->stopButton->isEnabled());

        // The third screen is unplugged: its window closes, the list shrinks, the rest goes on.
        QScreen *gone = offered[2].screen;
        offered.pop_back();
        emit qApp->screenRemoved(gone);
        QTRY_COMPARE(panel->checkboxes.size(), size_t(2));
        QCOMPARE(link.manager.projectorWindows.size(), size_t(1));
        QCOMPARE(link.manager.currentScreens.front().screen, offered[0].screen);

        // The last projected screen goes too: the projection ends and the panel shows it.
        gone = offered[0].screen;
        offered.erase(offered.begin());
        emit qApp->screenRemoved(gone);
        QTRY_COMPARE(panel->checkboxes.size(), size_t(1));
        QVERIFY(!link.manager.isProjecting && link.manager.projectorWindows.empty());
        QVERIFY(panel->startButton->isEnabled() && !panel->stopButton->isEnabled());

        panel->checkboxes[0]->setChecked(true);
        panel->startButton->click();
        panel->stopButton->click();
        QVERIFY(link.manager.projectorWindows.empty());
        QVERIFY(panel->startButton->isEnabled() && !panel->stopButton->isEnabled());
        delete panel;
    }

    // The picture point at the centre of the main view is the one in the middle of every
    // projected view, after zooming to actual size and scrolling; Esc ends the projection.
    void projectionFollowsTheMainViewUntilEsc()
    {
        MainWindow window(std::make_unique<Preferences>(dir.filePath(QStringLiteral("p.ini"))));
        window.show();
        QVERIFY(window.openPaths({leftPath, rightPath}));
        window.projector()->start(screensOf(QGuiApplication::screens()), ProjectionMode::splitLR);
        window.cpActualSize();
        QScrollArea *mainArea = window.findChild<QScrollArea *>();
        mainArea->horizontalScrollBar()->setValue(700);
        mainArea->verticalScrollBar()->setValue(300);

        // The main view shows the picture at scale 1, so a step of d there is d * scale on a projector.
        const QImage mainSeen = mainArea->viewport()->grab().toImage();
        const QPoint mainCentre(mainSeen.width() / 2, mainSeen.height() / 2);
        for (const auto &controller : window.projector()->manager.projectorWindows) {
            FitImageView *projected = controller->singleView;
            const QImage seen = projected->grab().toImage();
            for (const QPoint step : {QPoint(0, 0), QPoint(150, 0), QPoint(0, -120)}) {
                const QPointF there = QPointF(seen.width() / 2.0, seen.height() / 2.0) + QPointF(step) * projected->scale();
                const QRgb want = mainSeen.pixel(mainCentre + step), got = seen.pixel(there.toPoint());
                QVERIFY2(samePlace(got, want), qPrintable(QStringLiteral("%1 vs %2").arg(got, 0, 16).arg(want, 0, 16)));
            }
        }

        QTest::keyClick(window.windowHandle(), Qt::Key_Escape);
        QVERIFY(!window.projector()->manager.isProjecting);
        QVERIFY(window.projector()->manager.projectorWindows.empty());
    }

    // Runs the application's event loop, so it comes last.
    void closingTheMainWindowEndsTheApplication()
    {
        MainWindow window(std::make_unique<Preferences>(dir.filePath(QStringLiteral("q.ini"))));
        window.show();
        QVERIFY(window.openPaths({leftPath}));
        window.projector()->start(screensOf(QGuiApplication::screens()), ProjectionMode::splitLR);
        QList<QPointer<QWidget>> projected;
        for (const auto &controller : window.projector()->manager.projectorWindows)
            projected << controller->window();
        QTimer::singleShot(0, &window, &QWidget::close);
        QTimer::singleShot(5000, &window, [] { QCoreApplication::exit(1); }); // the projection kept it alive
        QCOMPARE(QApplication::exec(), 0);
        for (const QPointer<QWidget> &w : projected)
            QVERIFY(w.isNull());
    }
};

int main(int argc, char **argv)
{
    // Three screens of different sizes side by side, on Qt's offscreen platform.
    QTemporaryDir config;
    const QString screens = config.filePath(QStringLiteral("screens.json"));
    if (!TestSupport::writeAll(screens, R"({"screens": [
        {"name": "one", "x": 0, "y": 0, "width": 800, "height": 600},
        {"name": "two", "x": 800, "y": 0, "width": 1024, "height": 768},
        {"name": "three", "x": 1824, "y": 0, "width": 640, "height": 480}]})"))
        return 1;
    qputenv("QT_QPA_PLATFORM", ("offscreen:configfile=" + screens).toLocal8Bit());
    QApplication app(argc, argv);
    ProjectorTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "projector_test.moc"
