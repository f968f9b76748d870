#pragma once

#include "core/base/Variant.h"
#include "core/import/SourceValue.h"
#include "core/import/money/DbfCodePage.h"
#include "core/import/money/DbfMemo.h"

#include <memory>
#include <string_view>
#include <vector>

struct DbfField {
    /// As the file has it; looked up in any case.
    std::string name;
    char type = 'C';
    /// In bytes, of the record.
    int offset = 0;
    int width = 0;
    int decimals = 0;
};

/// A dBase III, dBase IV or FoxPro table, read only; the texts of its memo fields come from the file beside it. Records
/// flagged as deleted are not there. The table is read whole when it is opened, and what is written to it later is not
/// seen.
class CDbfFile {
public:
    /// None when there is no such file, when it is no table of a kind that is read here, or when its header, its fields
    /// and its size do not agree: half a table must not pass for a whole one. Raises ComError for a code page that is
    /// not known: wrong letters must not pass for right ones.
    static std::unique_ptr<CDbfFile> Open(const QString& path);
    ~CDbfFile();
    CDbfFile(const CDbfFile&) = delete;
    CDbfFile& operator=(const CDbfFile&) = delete;

    std::size_t Count() const { return m_live.size(); }
    /// Raises ComError when there is no such field.
    const DbfField& Field(std::string_view name) const;
    SourcePlace Place(std::size_t row, const DbfField& field) const;
    /// The number in the file, from 1, of the `row`-th record that is not deleted.
    std::int64_t RecordNumber(std::size_t row) const { return m_live[row] + std::int64_t{1}; }
    /// The value of the `row`-th record that is not deleted. Texts come without blanks at their end; whole numbers as
    /// 32-bit integers or, beyond them, as text; numbers with decimals exactly, as currencies. Raises UnreadableValue
    /// for what cannot be read as the field's type.
    Variant Value(std::size_t row, const DbfField& field) const;

private:
    struct Handle;

    explicit CDbfFile(std::unique_ptr<Handle> handle);
    bool ReadFields(int recordLength);
    bool FindLiveRecords(int records);
    void ChooseCodePage();
    QString Text(std::string_view bytes) const;
    /// None when there is no such text in the memo file.
    std::optional<Variant> MemoText(std::string_view pointer) const;

    std::unique_ptr<Handle> m_handle;
    std::vector<DbfField> m_fields;
    /// Numbers of the records that are not deleted.
    std::vector<std::uint32_t> m_live;
    DbfDecoder m_decoder;
    QString m_path;
    unsigned char m_kind = 0;
    /// Opened when the first memo is read.
    mutable std::unique_ptr<CDbfMemo> m_memo;
};
