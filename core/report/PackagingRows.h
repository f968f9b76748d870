#pragma once

#include "core/base/Currency.h"
#include "core/report/Quarter.h"
#include "core/store/RowStream.h"

#include <QString>

#include <cstdint>
#include <limits>
#include <optional>
#include <string>

/// What a form can tell packaging apart by. A code that is null is `NoCode`.
struct PackagingCodes {
    static constexpr std::int64_t NoCode = std::numeric_limits<std::int64_t>::min();

    std::int64_t material = NoCode;
    /// Of the issued packaging; a discard has its cover's.
    std::int64_t type = NoCode;
    /// The origin of issued packaging, the kind of a discard.
    std::int64_t share = NoCode;
    std::int64_t payment = NoCode;
    std::int64_t stat = NoCode;
    /// Nothing when the record does not say.
    std::optional<bool> reusable;
    std::optional<bool> exported;

    friend bool operator==(const PackagingCodes&, const PackagingCodes&) = default;
};

enum class PackagingSource { Issued, Discarded };

/// The packaging that left in a period, row by row: that of issue lines, or what was discarded. All that the report
/// says comes from these rows. Every member raises ComError.
class CPackagingRows {
public:
    /// Codes and quantities alone, in the order of the database; or with names, by document number, then by key.
    enum class Extent { Codes, Named };

    CPackagingRows(CDataStore& store, PackagingSource source, const DateRange& period, Extent extent);

    bool Next() { return m_rows.Next(); }

    const PackagingCodes& Codes();
    /// `mvcover_id` of issued packaging, `disc_id` of a discard.
    std::int64_t Key() const { return m_rows.Integer(KeyColumn); }
    /// Null where the quantity or the weight is; invalid where the file holds no whole number.
    Currency Pieces() const { return Value(PiecesColumn); }
    Currency KilogramsEach() const { return Value(WeightColumn); }
    /// Pieces times weight in kilograms, rounded as the engine rounds. Nothing for a null; a count that no currency
    /// holds for what is out of range.
    std::optional<WideCount> Kilograms() const;

    // Only of rows read with their names.
    DateTime Date() const { return m_rows.Date(m_names + DateColumn); }
    QString Cover() const { return Text(m_names + CoverColumn); }
    /// `Move.move_num`; empty for a discard.
    QString Document() const { return IsIssued() ? Text(m_names + DocumentColumn) : QString(); }
    /// The issue line and the issue; 0 for a discard.
    std::int64_t Line() const { return IsIssued() ? m_rows.Integer(m_names + LineColumn) : 0; }
    std::int64_t Issue() const { return IsIssued() ? m_rows.Integer(m_names + IssueColumn) : 0; }

private:
    enum Column {
        MaterialColumn,
        ReusableColumn,
        TypeColumn,
        ShareColumn,
        PiecesColumn,
        WeightColumn,
        KeyColumn,
        // only of issued packaging
        PaymentColumn,
        StatColumn,
        ExportColumn,
    };
    /// Behind those.
    enum NameColumn { DateColumn, CoverColumn, DocumentColumn, LineColumn, IssueColumn };

    bool IsIssued() const { return m_source == PackagingSource::Issued; }
    std::int64_t Code(Column column) const {
        return m_rows.IsNull(column) ? PackagingCodes::NoCode : m_rows.Integer(column);
    }
    std::optional<bool> Answer(Column column) const {
        return m_rows.IsNull(column) ? std::nullopt : std::optional(m_rows.Integer(column) != 0);
    }
    Currency Value(Column column) const;
    QString Text(int column) const;

    PackagingSource m_source;
    int m_names;
    CRowStream m_rows;
    PackagingCodes m_codes;
};
