#include "Editor/Filters/Engine/ColorMatrix.h"
#include "Editor/QuorvaneSdkImageEditorViewModel.h"
#include "Editor/Recipe/Rendering.h"
#include "Editor/Recipe/Replay.h"
#include "Emulation.h"
#include "TestImages.h"

#include <QColorSpace>
#include <QCryptographicHash>
#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

using namespace EditRecipe;

namespace {

// The tool's exit code, and what it said on stderr.
std::pair<int, QString> tool(const QStringList& arguments)
{
    QProcess process;
    process.start(qEnvironmentVariable("QUORVANE_TOOL"), arguments);
    process.waitForFinished(300'000);
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            QString::fromLocal8Bit(process.readAllStandardError())};
}

std::pair<int, QString> apply(const QStringList& arguments)
{
    return tool(QStringList{QStringLiteral("apply")} + arguments);
}

// Pixels only, in one format: what the golden hashes cover.
QByteArray pixelHash(const QImage& image)
{
    const QImage pixels = image.convertToFormat(QImage::Format_RGBA8888_Premultiplied);
    QCryptographicHash hash(QCryptographicHash::Sha256);
    for (int y = 0; y < pixels.height(); ++y)
        hash.addData(QByteArrayView(pixels.constScanLine(y), pixels.width() * 4));
    return hash.result().toHex().left(16);
}

Overlays strokes(double pixelRatio)
{
    return {QSizeF(390, 292.5),
            pixelRatio,
            {Stroke{QRectF(0.05, 0.1, 0.5, 0.4),
                    {QPointF(0.08, 0.15), QPointF(0.3, 0.45), QPointF(0.5, 0.2)},
                    QColor(255, 59, 48),
                    0.03,
                    0,
                    1},
             Stroke{QRectF(0.4, 0.5, 0.3, 0.3),
                    {QPointF(0.42, 0.55), QPointF(0.65, 0.75)},
                    QColor(0, 122, 255, 200),
                    0.01,
                    -35,
                    1.5625}}};
}

} // namespace

class tst_Replay : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;

private slots:
    // The whole promise: what a session exported, its recipe makes again, byte for byte, through the tool;
    // on one photo and on twenty in one run; and the session opens again with its steps to undo.
    void sessionRecipe_replaysToTheSameFile_andReopensStepByStep()
    {
        const QString photo = TestImages::photoPath();
        const QString exported = m_dir.filePath(QStringLiteral("export.jpg"));
        QuorvaneSdkImageEditorViewModel session(
            QuorvaneSdkImageEditorPreset(QUrl::fromLocalFile(photo), QuorvaneSdkImageOutputFormat::jpg(90),
                                         QUrl::fromLocalFile(exported), QSizeF(900, 700)));
        std::optional<QuorvaneSdkImageEditorResult> result;
        connect(&session, &QuorvaneSdkImageEditorViewModel::completion, this,
                [&](const QuorvaneSdkImageEditorResult& r) { result = r; });
        ImageEditorViewModel& editor = *session.editor();

        editor.navigate(ImageEditorViewModel::Page::crop);
        CropperViewModel& cropper = *editor.cropper();
        cropper.setupCropperLayout(QSizeF(390, 600));
        cropper.beginTouch(QPointF(385, 300));
        cropper.handleTouch(QPointF(300, 300));
        cropper.finishCropping();
        cropper.rotateRightTracked();
        cropper.toggleFlipHorizontally();
        cropper.accept();
        const QImage cropped = editor.image();

        editor.navigate(ImageEditorViewModel::Page::canvas);
        CanvasViewModel& canvas = *editor.canvas();
        canvas.setupScreenSize(QSizeF(390, 600));
        const QSizeF frame = canvas.imageFrameSize();
        canvas.beginStroke(QPointF(20, 30), frame);
        canvas.handleNewPoint(QPointF(120, 80), frame);
        canvas.addFinalPoint(QPointF(200, 60), frame);
        TextImageViewModel text;
        text.setText(QStringLiteral("Dragonfly over the pond"));
        text.setBold(true);
        text.setMaximumWidth(frame.width());
        canvas.enableText();
        canvas.confirmText(&text);
        canvas.enableMove();
        canvas.handleTap(canvas.lineImages().last());
        canvas.rotateBy(30);
        canvas.scaleUp();
        canvas.alignTo(CanvasAlignment::bottom);
        canvas.accept();
        const QImage drawn = editor.image();
        editor.finish();

        QVERIFY(result && result->editedImageURL());
        const QByteArray exportedBytes = TestImages::readFile(exported);
        QVERIFY(!exportedBytes.isEmpty());
        QuorvaneSdkImageEditorPreset again(QUrl::fromLocalFile(photo));
        QCOMPARE(again.setRecipe(result->recipe().toUtf8()), QString());
        QuorvaneSdkImageEditorViewModel reopened(again);
        ImageEditorViewModel& steps = *reopened.editor();
        QCOMPARE(steps.previousImageVersionCount(), 2);
        QVERIFY(steps.image() == drawn);
        steps.restoreLastImageVersion();
        QVERIFY(steps.image() == cropped);
        steps.restoreLastImageVersion();
        QCOMPARE(steps.image().size(), QSize(4224, 3168));

        QUORVANE_SKIP_WITHOUT_PROCESSES();
        const QString recipe = m_dir.filePath(QStringLiteral("edit.json"));
        QVERIFY(TestImages::writeFile(recipe, result->recipe().toUtf8()));

        const QString one = m_dir.filePath(QStringLiteral("one"));
        QVERIFY(QDir().mkpath(one));
        auto [code, said] = apply({recipe, photo, QStringLiteral("--output-dir"), one});
        QVERIFY2(code == 0, qPrintable(said));
        QCOMPARE(TestImages::readFile(one + QStringLiteral("/Dragonfly_by_Bolly.jpg")), exportedBytes);

        const QString many = m_dir.filePath(QStringLiteral("many"));
        QVERIFY(QDir().mkpath(many + QStringLiteral("/in")) && QDir().mkpath(many + QStringLiteral("/out")));
        QStringList arguments{recipe};
        for (int i = 0; i < 20; ++i) {
            arguments.append(many + QStringLiteral("/in/photo-%1.jpg").arg(i));
            QVERIFY(QFile::copy(photo, arguments.last()));
        }
        std::tie(code, said) = apply(arguments + QStringList{QStringLiteral("--output-dir"), many + "/out"});
        QVERIFY2(code == 0, qPrintable(said));
        for (int i = 0; i < 20; ++i)
            QVERIFY(TestImages::readFile(many + QStringLiteral("/out/photo-%1.jpg").arg(i)) == exportedBytes);
    }

    // The tool's own edit, colour included, written as a recipe and replayed.
    void toolRecipe_replaysToTheSameFile()
    {
        QUORVANE_SKIP_WITHOUT_PROCESSES();
        const QString edited = m_dir.filePath(QStringLiteral("tool.png"));
        const QString recipe = m_dir.filePath(QStringLiteral("tool.json"));
        auto [code, said] =
            tool({QStringLiteral("edit"), TestImages::photoPath(), QStringLiteral("--crop"),
                  QStringLiteral("100,50,800,600"), QStringLiteral("--rotate"), QStringLiteral("-12.5"),
                  QStringLiteral("--color"), QStringLiteral("0.1,0,0.2,1.2,0"), QStringLiteral("--engine"),
                  QStringLiteral("cpu"), QStringLiteral("--output"), edited, QStringLiteral("--write-recipe"),
                  recipe});
        QVERIFY2(code == 0, qPrintable(said));
        const QString out = m_dir.filePath(QStringLiteral("tool-out"));
        QVERIFY(QDir().mkpath(out));
        std::tie(code, said) = apply({recipe, TestImages::photoPath(), QStringLiteral("--output-dir"), out});
        QVERIFY2(code == 0, qPrintable(said));
        QCOMPARE(TestImages::readFile(out + QStringLiteral("/Dragonfly_by_Bolly.png")),
                 TestImages::readFile(edited));
    }

    // A recipe is refused before anything is written: for another photo, or unreadable (tst_EditRecipe has
    // every reason).
    void badRecipes_writeNothing_data()
    {
        QTest::addColumn<QByteArray>("recipe");
        QTest::addColumn<QStringList>("options");
        QTest::addColumn<QString>("refusal");
        Recipe recipe{{QSize(4224, 3168), QString(64, u'0')}, {Crop{}}, {}};
        QTest::newRow("another photo") << toJson(recipe) << QStringList() << "another photo";
        QTest::newRow("broken JSON") << toJson(recipe).left(40) << QStringList() << "not valid JSON";
        recipe.source.uprightSize = QSize(400, 300);
        QTest::newRow("another photo, with --any-photo")
            << toJson(recipe) << QStringList{QStringLiteral("--any-photo")} << QString();
    }

    void badRecipes_writeNothing()
    {
        QFETCH(QByteArray, recipe);
        QFETCH(QStringList, options);
        QFETCH(QString, refusal);
        QUORVANE_SKIP_WITHOUT_PROCESSES();
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("recipe.json"));
        QVERIFY(TestImages::writeFile(path, recipe));
        QVERIFY(QDir(dir.path()).mkdir(QStringLiteral("out")));
        const auto [code, said] =
            apply(QStringList{path, TestImages::photoPath(), QStringLiteral("--output-dir"),
                              dir.filePath(QStringLiteral("out"))} +
                  options);
        if (refusal.isEmpty()) {
            // Geometry in fractions applies to any photo once asked.
            QCOMPARE(code, 0);
            return;
        }
        QCOMPARE(code, 65);
        QVERIFY2(said.contains(refusal), qPrintable(said));
        QVERIFY(QDir(dir.filePath(QStringLiteral("out"))).isEmpty());
    }

    // Replays pinned to their pixels: a change in how any step draws shows here first.
    void replay_givesThePinnedPixels_data()
    {
        QTest::addColumn<QImage>("photo");
        QTest::addColumn<QList<Step>>("steps");
        QTest::addColumn<QByteArray>("hash");
        const QImage dragonfly(TestImages::photoPath());
        QImage wide = TestImages::quadrants(QSize(640, 480));
        wide.setColorSpace(QColorSpace::DisplayP3);
        Color color;
        color.values = {0.2, 0, 0, 1.3, 0};
        const ColorMatrix matrix = testMatrix(0.2f, 0, 0, 1.3f, 0);
        std::copy(matrix.cbegin(), matrix.cend(), color.matrix.begin());

        QTest::newRow("photo: cut, quarter turn, mirror")
            << dragonfly << QList<Step>{Crop{QRectF(0.25, 0.125, 0.5, 0.75), 3, 0, true, false}}
            << QByteArray("00dcf9ea49d7b605");
        QTest::newRow("photo: free angle")
            << dragonfly << QList<Step>{Crop{QRectF(0, 0, 1, 1), 0, 12.5, false, false}}
            << QByteArray("f10bd0b54d0d11a7");
        QTest::newRow("photo: colour") << dragonfly << QList<Step>{color} << QByteArray("f7dd33442b4e1e0c");
        QTest::newRow("photo: cut, turn, then colour")
            << dragonfly << QList<Step>{Crop{QRectF(0.25, 0.125, 0.5, 0.75), 1, 0, false, true}, color}
            << QByteArray("c1f3a983943e9790");
        QTest::newRow("photo: colour, then cut and turn")
            << dragonfly << QList<Step>{color, Crop{QRectF(0.25, 0.125, 0.5, 0.75), 1, 0, false, true}}
            << QByteArray("c1f3a983943e9790");
        QTest::newRow("photo: strokes at scale 2")
            << dragonfly << QList<Step>{strokes(2)} << QByteArray("be81bc4a564fea15");
        QTest::newRow("wide gamut: strokes after a cut")
            << wide << QList<Step>{Crop{QRectF(0.1, 0.1, 0.8, 0.8), 1, 0, false, true}, strokes(1)}
            << QByteArray("a9e28e838209a47b");
    }

    void replay_givesThePinnedPixels()
    {
        QFETCH(QImage, photo);
        QFETCH(QList<Step>, steps);
        QFETCH(QByteArray, hash);
        const auto replayedImage = replayed(photo, steps);
        QVERIFY(std::holds_alternative<QImage>(replayedImage));
        QCOMPARE(pixelHash(std::get<QImage>(replayedImage)), hash);

        // Rendered a band at a time, as the tool writes it, from the photo as each orientation stores it,
        // packed three bytes a pixel as the tool decodes it too.
        // Under the emulator, ten times slower, only the tool's own case: stored turned, packed.
        const bool emulated = qEnvironmentVariableIsSet("QUORVANE_EMULATED");
        for (int orientation : emulated ? QList<int>{6} : QList<int>{1, 5, 6, 8}) {
            for (bool packed : emulated ? QList<bool>{true} : QList<bool>{false, true}) {
                StoredPhoto stored{TestImages::displayed(photo, TestImages::inverseOrientation(orientation)),
                                   orientation};
                if (packed)
                    stored.pixels.convertTo(QImage::Format_RGB888);
                stored.pixels.setColorSpace(photo.colorSpace());
                auto bands = rendered(stored, steps);
                QVERIFY(std::holds_alternative<std::unique_ptr<ImageBands>>(bands));
                QVERIFY2(
                    pixelHash(whole(*std::get<std::unique_ptr<ImageBands>>(bands))) == hash,
                    qPrintable(
                        QStringLiteral("orientation %1%2").arg(orientation).arg(packed ? ", packed" : "")));
            }
        }
    }
};

QTEST_MAIN(tst_Replay)
#include "tst_Replay.moc"
