#include "core/report/PackagingRows.h"

#include "core/base/SqlText.h"

namespace {

/// The texts of one source, in the order of the columns.
struct SourceQuery {
    const char* codes;
    const char* names;
    const char* from;
    const char* day;
    const char* order;
    int codeCount;
};

constexpr SourceQuery Issued = {
    "SELECT Cover.cover_mat, Cover.cover_reusable, Move_Cover.cover_type, Move_Cover.cover_org, "
    "Move_Cover.mvcover_qty, Cover.cover_weight, Move_Cover.mvcover_id, Move_Cover.cover_pay, Cover.cover_stat, "
    "Move.move_export",
    ", Move.move_date, Cover.cover_name, Move.move_num, Move_Cover.mvprod_id, Move.move_id",
    " FROM (Move INNER JOIN Move_Cover ON Move.move_id = Move_Cover.move_id) INNER JOIN Cover ON Move_Cover.cover_id = "
    "Cover.cover_id",
    "move_date",
    " ORDER BY Move.move_num, Move_Cover.mvcover_id",
    10,
};

constexpr SourceQuery Discarded = {
    "SELECT Cover.cover_mat, Cover.cover_reusable, Cover.cover_type, CoverDiscard.disc_type, CoverDiscard.disc_qty, "
    "Cover.cover_weight, CoverDiscard.disc_id",
    ", CoverDiscard.disc_date, Cover.cover_name",
    " FROM CoverDiscard INNER JOIN Cover ON CoverDiscard.cover_id = Cover.cover_id",
    "disc_date",
    " ORDER BY CoverDiscard.disc_id",
    7,
};

const SourceQuery& QueryOf(PackagingSource source) {
    return source == PackagingSource::Issued ? Issued : Discarded;
}

std::string QueryText(const SourceQuery& query, const DateRange& period, CPackagingRows::Extent extent) {
    const bool named = extent == CPackagingRows::Extent::Named;
    return std::string(query.codes) + (named ? query.names : "") + query.from + " WHERE " +
           SqlBetween(query.day, period.from, period.to) + (named ? query.order : "");
}

} // namespace

CPackagingRows::CPackagingRows(CDataStore& store, PackagingSource source, const DateRange& period, Extent extent)
    : m_source(source), m_names(QueryOf(source).codeCount), m_rows(store, QueryText(QueryOf(source), period, extent)) {}

const PackagingCodes& CPackagingRows::Codes() {
    m_codes.material = Code(MaterialColumn);
    m_codes.reusable = Answer(ReusableColumn);
    m_codes.type = Code(TypeColumn);
    m_codes.share = Code(ShareColumn);
    if (IsIssued()) {
        m_codes.payment = Code(PaymentColumn);
        m_codes.stat = Code(StatColumn);
        m_codes.exported = Answer(ExportColumn);
    }
    return m_codes;
}

Currency CPackagingRows::Value(Column column) const {
    if (m_rows.IsNull(column))
        return Currency::Null();
    return m_rows.IsInteger(column) ? Currency::FromCount(m_rows.Integer(column)) : Currency::Invalid();
}

std::optional<WideCount> CPackagingRows::Kilograms() const {
    const Currency pieces = Pieces();
    const Currency weight = KilogramsEach();
    if (pieces.status == ValueStatus::Null || weight.status == ValueStatus::Null)
        return {};
    if (!pieces.IsValid() || !weight.IsValid())
        return static_cast<WideCount>(std::numeric_limits<std::int64_t>::max()) + 1;
    return RoundedProduct(pieces.count, weight.count);
}

QString CPackagingRows::Text(int column) const {
    const std::string_view text = m_rows.Text(column);
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
