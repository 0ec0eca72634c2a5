#pragma once

#include <QtCore/QLocale>
#include <QtCore/QTranslator>

/// The languages that the program has, and the one that a test uses. Must be used on the main
/// thread.
class Languages {
public:
    Languages() = default;
    ~Languages() { reset(); }
    Q_DISABLE_COPY_MOVE(Languages)

    /// Returns the names of all languages but English, as the files of the tables have them: "de".
    static QStringList translated();

    /// Returns English and the languages of `translated`.
    static QList<QLocale> all();

    /// Makes `locale` the default locale, and shows the texts of the application and of Qt in its
    /// language. The texts of the engine are those of the next TestHost. Ends the program if the
    /// application is not part of it or does not have the language.
    void use(const QLocale &locale);

    /// Returns to English and the C locale.
    void reset();

private:
    QTranslator m_application;
    QTranslator m_qt;
};
