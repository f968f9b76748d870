#pragma once

#include "core/base/Variant.h"

#include <QStringDecoder>

#include <memory>
#include <optional>
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

/// A dBase III, dBase IV or FoxPro table, read only; memo fields read as null. Records flagged as deleted are not
/// there. The file is read whole when it is opened, and what is written to it later is not seen.
class CDbfFile {
public:
    /// None when there is no such file, when it is no table of a kind that is read here, or when its header, its fields
    /// and its size do not agree: half a table must not pass for a whole one.
    static std::unique_ptr<CDbfFile> Open(const QString& path);
    ~CDbfFile();
    CDbfFile(const CDbfFile&) = delete;
    CDbfFile& operator=(const CDbfFile&) = delete;

    std::size_t Count() const { return m_live.size(); }
    /// Raises ComError when there is no such field.
    const DbfField& Field(std::string_view name) const;
    /// The value of the `row`-th record that is not deleted. Texts come without blanks at their end; whole numbers as
    /// 32-bit integers or, beyond them, as text; numbers with decimals exactly, as currencies. Raises ComError for what
    /// cannot be read as the field's type, except a date, which is then invalid.
    Variant Value(std::size_t row, const DbfField& field) const;

private:
    struct Handle;

    explicit CDbfFile(std::unique_ptr<Handle> handle);
    bool ReadFields(int recordLength);
    bool FindLiveRecords(int records);
    void ChooseCodePage();
    QString Text(std::string_view bytes) const;

    std::unique_ptr<Handle> m_handle;
    std::vector<DbfField> m_fields;
    /// Numbers of the records that are not deleted.
    std::vector<std::uint32_t> m_live;
    /// None stands for Windows-1250.
    mutable std::optional<QStringDecoder> m_decoder;
};
