#include "Editor/Common/EditorLayout.h"

#include <QTest>

class tst_EditorLayout : public QObject
{
    Q_OBJECT

private slots:
    void everyDeviceShape_givesThePictureTheRestWithNothingOverlapping_data()
    {
        QTest::addColumn<QSizeF>("window");
        QTest::addColumn<qreal>("topInset");
        QTest::addColumn<qreal>("bottomInset");
        QTest::addColumn<bool>("landscape");
        QTest::newRow("phone portrait") << QSizeF(390, 844) << 47.0 << 34.0 << false;
        QTest::newRow("phone landscape") << QSizeF(844, 390) << 0.0 << 21.0 << true;
        QTest::newRow("tablet portrait") << QSizeF(1024, 1366) << 24.0 << 20.0 << false;
        QTest::newRow("tablet landscape") << QSizeF(1366, 1024) << 24.0 << 20.0 << true;
        QTest::newRow("small desktop window") << QSizeF(480, 320) << 0.0 << 0.0 << true;
    }

    void everyDeviceShape_givesThePictureTheRestWithNothingOverlapping()
    {
        QFETCH(QSizeF, window);
        QFETCH(qreal, topInset);
        QFETCH(qreal, bottomInset);
        QFETCH(bool, landscape);
        const EditorLayoutRects rects = editorLayout({window, topInset, bottomInset});

        QCOMPARE(rects.isLandscape, landscape);
        const QRectF screen(QPointF(0, 0), window);
        const QRectF safe = screen.adjusted(0, topInset, 0, -bottomInset);
        for (const QRectF& part : {rects.picture, rects.topBar, rects.controls, rects.bottomBar})
            QVERIFY(safe.contains(part));
        QVERIFY(screen.contains(rects.tabBar));
        for (const QRectF& bar : {rects.topBar, rects.controls, rects.bottomBar, rects.tabBar})
            QVERIFY(!bar.intersects(rects.picture));
        QVERIFY(!rects.topBar.intersects(rects.controls));
        QVERIFY(!rects.controls.intersects(rects.bottomBar));
        // Palettes and toolbars are centred, never stretched across a tablet.
        QVERIFY(rects.controls.width() <= EditorLayout::kMaxControlsWidth);
        QCOMPARE(rects.controls.center().x(), rects.bottomBar.center().x());
        if (landscape) {
            // The bars stand beside the picture, which has the window's whole height.
            QCOMPARE(rects.picture.height(), safe.height() - 2 * EditorLayout::kMargin);
            QVERIFY(rects.picture.right() < rects.controls.left());
        } else {
            QCOMPARE(rects.picture.width(), window.width() - 2 * EditorLayout::kMargin);
        }
    }

    // On a phone turned sideways, the picture must be larger than the strip it once was (125 × 94 points for
    // the canvas, 320 × 242 for the crop page), for a photo of either orientation.
    void phoneLandscape_picturesAreLarger_data()
    {
        QTest::addColumn<QSizeF>("photo");
        QTest::addColumn<QSizeF>("atLeast");
        QTest::newRow("landscape photo") << QSizeF(4032, 3024) << QSizeF(480, 360);
        QTest::newRow("portrait photo") << QSizeF(3024, 4032) << QSizeF(270, 360);
    }

    void phoneLandscape_picturesAreLarger()
    {
        QFETCH(QSizeF, photo);
        QFETCH(QSizeF, atLeast);
        const QRectF picture = editorLayout({QSizeF(844, 390), 0, 0}).picture;
        const QSizeF fitted = photo.scaled(picture.size(), Qt::KeepAspectRatio);
        QVERIFY2(fitted.width() >= atLeast.width() && fitted.height() >= atLeast.height(),
                 qPrintable(QStringLiteral("%1 × %2").arg(fitted.width()).arg(fitted.height())));
    }

    void windowTooSmall_leavesAnEmptyPictureRatherThanANegativeOne()
    {
        const EditorLayoutRects rects = editorLayout({QSizeF(200, 120), 30, 30});
        QVERIFY(rects.picture.width() >= 0 && rects.picture.height() >= 0);
    }
};

QTEST_APPLESS_MAIN(tst_EditorLayout)
#include "tst_EditorLayout.moc"
