#pragma once

#include "core/import/money/DbfIndex.h"
#include "core/import/money/MoneyTable.h"

/// Money's tables as dBase files.
class CDbfTable : public IMoneyTable {
public:
    bool Open(const QString& path) override;
    void Close() override;
    std::int32_t RecordCount() override;
    bool AtEnd() override;
    void MoveFirst() override;
    void MoveNext() override;
    Variant FieldValue(std::string_view column) override;
    std::int64_t RecordNumber() override;
    int SeekKey(const Variant& key) override;
    int SeekKeys(const std::vector<Variant>& keys) override;
    void SetCurrentIndex(std::string_view expression) override;
    void SetAlive(const std::function<void()>& alive) override { m_alive = alive; }

private:
    const CDbfFile& File() const;
    /// Of the current record, in the file's order.
    std::size_t Row() const;

    std::unique_ptr<CDbfFile> m_file;
    std::optional<CDbfIndex> m_index;
    std::function<void()> m_alive;
    std::size_t m_position = 0;
};
