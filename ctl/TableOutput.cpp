#include "ctl/TableOutput.h"

#include "ctl/Terminal.h"

#include <CLI/Validators.hpp>

#include <QJsonArray>
#include <QJsonDocument>

namespace {

/// A line break inside a value would end the line of whoever reads line by line, but is kept as it stands: quoted, it
/// belongs to the value.
QString CsvField(const QString& value) {
    const bool plain =
        !value.contains(u',') && !value.contains(u'"') && !value.contains(u'\n') && !value.contains(u'\r');
    return plain ? value : u'"' + QString(value).replace(u'"', QStringLiteral("\"\"")) + u'"';
}

QString CsvLine(const QStringList& values) {
    QStringList fields;
    for (const QString& value : values)
        fields += CsvField(value);
    return fields.join(u',');
}

/// The text as JSON writes it, in quotes.
QString JsonText(const QString& value) {
    const QByteArray array = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
    return QString::fromUtf8(array.mid(1, array.size() - 2));
}

} // namespace

void CTableOutput::AddFormat(CLI::App& command, std::string& format) {
    format = "csv";
    command.add_option("--format", format, "csv (the usual one) or json")
        ->option_text("csv|json")
        ->check(CLI::IsMember({"csv", "json"}));
}

CTableOutput::CTableOutput(const std::string& format, const QStringList& columns)
    : m_json(format == "json"), m_columns(columns) {
    if (!m_json)
        PrintLine(CsvLine(columns));
}

void CTableOutput::Row(const QStringList& values) {
    if (!m_json) {
        PrintLine(CsvLine(values));
        return;
    }
    QStringList members;
    for (qsizetype i = 0; i < m_columns.size(); ++i)
        members += JsonText(m_columns[i]) + QStringLiteral(": ") + JsonText(values[i]);
    PrintLine(m_object.isEmpty() ? QStringLiteral("[") : m_object + u',');
    m_object = u'{' + members.join(QStringLiteral(", ")) + u'}';
}

void CTableOutput::End() {
    if (m_json)
        PrintLine(m_object.isEmpty() ? QStringLiteral("[]") : m_object + QStringLiteral("\n]"));
}

QString Decimal(Currency value) {
    return value.IsValid() ? FormatCurrency(value, 1, 'D').replace(u',', u'.') : QString();
}

QString IsoDay(const DateTime& date) {
    return QString::fromStdString(date.Stored().substr(0, 10));
}
