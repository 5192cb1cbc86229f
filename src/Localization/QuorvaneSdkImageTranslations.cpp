#include "QuorvaneSdkImageTranslations.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QPointer>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QSet>
#include <QTranslator>
#include <memory>

namespace {

struct Installed
{
    // The application whose language was chosen: a new application chooses again.
    QPointer<QCoreApplication> application;
    // Parented to the application, so it goes with it.
    QPointer<QTranslator> translator;
};

Installed& installed()
{
    static Installed state;
    return state;
}

struct Language
{
    bool found = false;
    // None for English.
    std::unique_ptr<QTranslator> translator;
};

// The user's languages in order of preference; the first one we ship wins. English is the texts' own
// language, so it wins without a file: a user who prefers English to German must not get German.
Language languageFor(const QLocale& locale)
{
    for (const QString& tag : locale.uiLanguages()) {
        const QLocale preferred(tag);
        if (preferred.language() == QLocale::English)
            return {true, nullptr};
        auto translator = std::make_unique<QTranslator>();
        if (translator->load(preferred, QStringLiteral("quorvane_sdkimage"), QStringLiteral("_"),
                             QStringLiteral(":/quorvane/sdkimage/i18n")))
            return {true, std::move(translator)};
    }
    return {};
}

// Qt 6.4 refreshes a QML engine's translated bindings only when asked; every engine that shows a window is.
void retranslateScreens()
{
    if (!qobject_cast<QGuiApplication*>(QCoreApplication::instance()))
        return;
    QSet<QQmlEngine*> engines;
    for (QWindow* window : QGuiApplication::allWindows()) {
        if (QQmlEngine* engine = qmlEngine(window))
            engines.insert(engine);
        if (auto* quickWindow = qobject_cast<QQuickWindow*>(window)) {
            for (QQuickItem* item : quickWindow->contentItem()->childItems()) {
                if (QQmlEngine* engine = qmlEngine(item))
                    engines.insert(engine);
            }
        }
    }
    for (QQmlEngine* engine : std::as_const(engines))
        engine->retranslate();
}

// Hosts call nothing: the user's language is taken as the application starts. A static library's startup
// function only runs when its file is linked; the QML module's singleton calls setLanguage, so it is.
void installAtStartup()
{
    QuorvaneSdkImageTranslations::install();
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(installAtStartup)

void QuorvaneSdkImageTranslations::install()
{
    if (installed().application && installed().application == QCoreApplication::instance())
        return;
    setLanguage(QLocale());
}

bool QuorvaneSdkImageTranslations::setLanguage(const QLocale& locale)
{
    QCoreApplication* application = QCoreApplication::instance();
    if (!application)
        qFatal("QuorvaneSdkImageTranslations: the application must exist before a language is set");
    Installed& state = installed();
    Language next = languageFor(locale);
    if (state.translator) {
        QCoreApplication::removeTranslator(state.translator);
        delete state.translator;
    }
    if (next.translator) {
        next.translator->setParent(application);
        state.translator = next.translator.release();
        QCoreApplication::installTranslator(state.translator);
    }
    state.application = application;
    retranslateScreens();
    return next.found;
}
