#pragma once

#include <QtCore/QCoreApplication>

/// Stores and finds secrets as the program `velmora` does, as long as it exists.
class NameOfProgram {
public:
    NameOfProgram() { QCoreApplication::setApplicationName(QStringLiteral("Velmora")); }
    ~NameOfProgram() { QCoreApplication::setApplicationName(m_before); }
    NameOfProgram(const NameOfProgram &) = delete;
    NameOfProgram &operator=(const NameOfProgram &) = delete;

private:
    const QString m_before = QCoreApplication::applicationName();
};
