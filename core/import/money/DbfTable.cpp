#include "core/import/money/DbfTable.h"

#include "core/base/ComError.h"

namespace {

constexpr int NotFound = 0;

} // namespace

bool CDbfTable::Open(const QString& path) {
    Close();
    m_file = CDbfFile::Open(path);
    return m_file != nullptr;
}

void CDbfTable::Close() {
    m_index.reset();
    m_file.reset();
    m_position = 0;
}

const CDbfFile& CDbfTable::File() const {
    if (!m_file)
        throw ComError("dbf", {}, ResultCode::ObjectClosed, QStringLiteral("Tabulka není otevřena."));
    return *m_file;
}

std::int32_t CDbfTable::RecordCount() {
    return static_cast<std::int32_t>(File().Count());
}

bool CDbfTable::AtEnd() {
    return m_position >= File().Count();
}

void CDbfTable::MoveFirst() {
    File();
    m_position = 0;
}

void CDbfTable::MoveNext() {
    if (!AtEnd())
        ++m_position;
}

std::size_t CDbfTable::Row() const {
    return m_index && m_position < File().Count() ? m_index->Row(m_position) : m_position;
}

Variant CDbfTable::FieldValue(std::string_view column) {
    return File().Value(Row(), File().Field(column));
}

std::int64_t CDbfTable::RecordNumber() {
    return AtEnd() ? 0 : File().RecordNumber(Row());
}

int CDbfTable::SeekKey(const Variant& key) {
    return SeekKeys({key});
}

int CDbfTable::SeekKeys(const std::vector<Variant>& keys) {
    File();
    if (!m_index)
        throw ComError("dbf", {}, ResultCode::NoSuchField, QStringLiteral("Není zvolen index."));
    const std::optional<std::size_t> found = m_index->Find(keys);
    if (!found)
        return NotFound;
    m_position = *found;
    return Found;
}

void CDbfTable::SetCurrentIndex(std::string_view expression) {
    if (!m_index || m_index->Expression() != expression)
        m_index.emplace(File(), expression, m_alive);
    m_position = 0;
}
