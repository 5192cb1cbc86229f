#pragma once

#include <QLocale>

/// The component's own texts in the user's language. Its translations are built into the component; texts
/// it has no translation for show in English.
class QuorvaneSdkImageTranslations
{
public:
    /// Loads the component's texts for QLocale() (the system locale unless the host set a default).
    /// Runs by itself when the application starts; calling it again is harmless.
    static void install();
    /// Switches the component's texts at run time; open screens retranslate. Returns false when the
    /// component has no translation for the locale (its texts then show in English).
    static bool setLanguage(const QLocale& locale);
};
