#include "tests/support/SampleRows.h"

#include <sstream>

std::string Shown(const Variant& value) {
    if (const auto* currency = std::get_if<Currency>(&value))
        return currency->IsValid() ? FormatCurrency(*currency, 1, 'D').toStdString() : "no currency";
    if (const auto* date = std::get_if<DateTime>(&value))
        return date->IsValid() ? "#" + date->Stored() + "#" : date->Status() == ValueStatus::Null ? "#null#" : "#-#";
    if (const auto* text = std::get_if<QString>(&value))
        return "'" + text->toStdString() + "'";
    return IsNull(value) ? "null" : FormatVariant(value).toStdString();
}

std::string ShownOrCode(const std::function<Variant()>& read) {
    try {
        return Shown(read());
    } catch (const ComError& error) {
        return QString::asprintf("%08X", error.Code()).toStdString();
    }
}

std::string Rows(CDataStore& store, const std::string& sql, const char* columns) {
    std::string rows;
    for (const RecordsetPtr recordset = store.Query(sql); !recordset->get_EOF(); recordset->MoveNext()) {
        std::istringstream names(columns);
        std::string separator = rows.empty() ? "" : " ";
        for (std::string name; names >> name; separator = "|")
            rows += separator + Shown(recordset->get_Collect(name));
    }
    return rows;
}
