#include "core/store/RowStream.h"

CRowStream::CRowStream(CDataStore& store, std::string_view sql) : m_sql(sql), m_prepared(store.Engine().Prepare(sql)) {
    if (m_prepared->translation.kind != jet::Translation::Kind::Rows)
        jet::RaiseSyntax(sql, "příkaz nespojuje tabulky");
}

CRowStream::~CRowStream() {
    Statement().Reset();
}

bool CRowStream::Next() {
    return NamingText(m_sql, [&] { return Statement().Step(); });
}

DateTime CRowStream::Date(int column) const {
    return IsNull(column) ? DateTime() : DateTime::FromStored(Text(column));
}
