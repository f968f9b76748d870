#include "tests/support/MoneyFolder.h"

#include "core/base/CodePage.h"
#include "tests/support/ProgramFolder.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFileInfo>

MoneyFolder::MoneyFolder() : m_before(qgetenv("KUVEL_DRIVES")) {
    qputenv("KUVEL_DRIVES", m_folder.path().toUtf8());
}

MoneyFolder::~MoneyFolder() {
    qputenv("KUVEL_DRIVES", m_before);
}

void MoneyFolder::Write(const QString& path, const QString& text) const {
    ASSERT_TRUE(QDir().mkpath(QFileInfo(Path(path)).path()));
    WriteFile(Path(path), EncodeWindows1250(text));
}

void MoneyFolder::WriteTable(const QString& path, const DbfBytes& table) const {
    ASSERT_TRUE(QDir().mkpath(QFileInfo(Path(path)).path()));
    WriteFile(Path(path), table.Make());
}

void MoneyFolder::Install(char drive, const QString& dataRoot) const {
    const QString root = QLatin1Char(drive) + QStringLiteral(":/");
    Write(root + QStringLiteral("Program Files/CIGLER SOFTWARE/Common Files/Setup.ini"),
          QStringLiteral("[InstParams]\r\nLocalPath=%1:\\Money\r\n").arg(QLatin1Char(drive)));
    Write(root + QStringLiteral("Money/MonS3.ini"), QStringLiteral("[Directory]\r\nDataRoot=%1\r\n").arg(dataRoot));
}

void MoneyFolder::AddAgenda(const QString& folder, const QString& name) const {
    Write(folder + QStringLiteral("/Agenda.ini"), QStringLiteral("[Údaje o firmě]\r\nNázev=%1\r\n").arg(name));
}

void MoneyFolder::AddYear(const QString& folder, const QString& name) const {
    Write(folder + QStringLiteral("/Rok.ini"), QStringLiteral("[Global]\r\nÚčetní rok=%1\r\n").arg(name));
}
