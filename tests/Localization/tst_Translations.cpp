#include "Editor/QuorvaneSdkImage.h"
#include "EditorScreen.h"
#include "Localization/QuorvaneSdkImageTranslations.h"
#include "TestImages.h"

#include <QCoreApplication>
#include <QQmlEngine>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

using namespace TestImages;
using Page = ImageEditorViewModel::Page;

namespace {

// What a person reads on the item: the first text drawn inside it, whatever kind of button it is.
QString shownText(const QQuickItem* item)
{
    if (!item)
        return {};
    for (const QQuickItem* child : item->childItems()) {
        if (child->inherits("QQuickText") && child->isVisible())
            return child->property("text").toString();
        if (QString text = shownText(child); !text.isEmpty())
            return text;
    }
    return {};
}

} // namespace

class tst_Translations : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;
    QString m_photo;

private slots:
    void initTestCase()
    {
        QStandardPaths::setTestModeEnabled(true);
        // Nothing was called: the application's start chose the user's language (English here, German in
        // the run with LANGUAGE=de).
        QCOMPARE(QCoreApplication::translate("TextImageView", "CANCEL"),
                 qEnvironmentVariable("QUORVANE_EXPECTED_CANCEL", QStringLiteral("CANCEL")));
        m_photo = m_dir.filePath(QStringLiteral("photo.png"));
        QVERIFY(writeFile(m_photo, encode(QImage(photoPath()).copy(1000, 800, 600, 450), "png")));
    }

    void cleanup() { QuorvaneSdkImageTranslations::setLanguage(QLocale(QLocale::English)); }

    void everyLanguage_replacesTheOneBefore_data()
    {
        QTest::addColumn<QString>("locale");
        QTest::addColumn<bool>("shipped");
        QTest::addColumn<QString>("crop");
        QTest::addColumn<QString>("blue");
        QTest::newRow("German") << "de_DE" << true << "ZUSCHNEIDEN"
                                << "Blau";
        QTest::newRow("Brazilian Portuguese") << "pt_BR" << true << "CORTAR"
                                              << "Azul";
        QTest::newRow("Japanese") << "ja_JP" << true << "トリミング"
                                  << "ブルー";
        QTest::newRow("Swiss German, by its language") << "de_CH" << true << "ZUSCHNEIDEN"
                                                       << "Blau";
        QTest::newRow("English, the texts' own") << "en_GB" << true << "CROP"
                                                 << "Blue";
        QTest::newRow("Korean, not shipped") << "ko_KR" << false << "CROP"
                                             << "Blue";
        QTest::newRow("Traditional Chinese, not shipped") << "zh_TW" << false << "CROP"
                                                          << "Blue";
    }

    // From French, so that a language not shipped proves the French texts went.
    void everyLanguage_replacesTheOneBefore()
    {
        QFETCH(QString, locale);
        QFETCH(bool, shipped);
        QFETCH(QString, crop);
        QFETCH(QString, blue);
        QVERIFY(QuorvaneSdkImageTranslations::setLanguage(QLocale(QStringLiteral("fr"))));

        QCOMPARE(QuorvaneSdkImageTranslations::setLanguage(QLocale(locale)), shipped);
        QCOMPARE(QCoreApplication::translate("CropperView", "CROP"), crop);
        QCOMPARE(QCoreApplication::translate("Filter", "Blue"), blue);
    }

    void openScreen_followsASwitch_fromCppAndFromQml()
    {
        QVERIFY(QuorvaneSdkImageTranslations::setLanguage(QLocale(QStringLiteral("de"))));
        EditorScreen screen(QuorvaneSdkImageEditorPreset(QUrl::fromLocalFile(m_photo)));
        QCOMPARE(shownText(screen.find("cropTab")), QStringLiteral("Zuschneiden"));
        screen.tap("cropTab");
        QVERIFY(screen.waitForToolPage());
        QCOMPARE(shownText(screen.find("cancelButton")), QStringLiteral("ABBRECHEN"));
        QCOMPARE(shownText(screen.find("acceptButton")), QStringLiteral("ZUSCHNEIDEN"));

        // As a QML host switches: through the module's singleton, on the screen's own engine.
        QQmlEngine* engine = screen.view().engine();
        auto* sdk = engine->singletonInstance<QuorvaneSdkImage*>(
            qmlTypeId("Quorvane.SdkImage", 1, 0, "QuorvaneSdkImage"));
        QVERIFY(sdk);
        QVERIFY(sdk->setLanguage(QStringLiteral("ja")));
        QCOMPARE(shownText(screen.find("cancelButton")), QStringLiteral("キャンセル"));
        QCOMPARE(shownText(screen.find("acceptButton")), QStringLiteral("トリミング"));

        // A name the C++ catalogue gives follows too.
        screen.tap("cancelButton");
        QTRY_COMPARE(screen.editor()->page(), Page::base);
        screen.editor()->navigate(Page::filters);
        QVERIFY(screen.waitForToolPage());
        QCOMPARE(screen.text("selectedEntryName"), QStringLiteral("オリジナル"));

        QVERIFY(QuorvaneSdkImageTranslations::setLanguage(QLocale(QLocale::English)));
        QCOMPARE(screen.text("selectedEntryName"), QStringLiteral("Original"));
        QCOMPARE(shownText(screen.find("acceptButton")), QStringLiteral("ACCEPT"));
    }
};

QTEST_MAIN(tst_Translations)
#include "tst_Translations.moc"
