#pragma once

#include "core/base/Currency.h"
#include "core/base/DateTime.h"

#include <CLI/App.hpp>

#include <QString>
#include <QStringList>

#include <string>

/// A result of rows and named columns on standard output: CSV (a header, commas, texts quoted where they must be) or a
/// JSON array of objects whose values are texts.
class CTableOutput {
public:
    /// Adds the option --format to the command.
    static void AddFormat(CLI::App& command, std::string& format);

    /// Prints the header of CSV.
    CTableOutput(const std::string& format, const QStringList& columns);

    void Row(const QStringList& values);
    /// After the last row: ends the array.
    void End();

private:
    bool m_json;
    QStringList m_columns;
    /// The object before, which does not know yet whether another follows.
    QString m_object;
};

/// "1.2345", whatever the user's language; empty for a value that is not valid.
QString Decimal(Currency value);
/// "2012-07-01"; empty for a date that is not valid.
QString IsoDay(const DateTime& date);
