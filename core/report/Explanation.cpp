#include "core/report/Explanation.h"

#include "core/base/SqlText.h"
#include "core/report/PackagingRows.h"
#include "core/report/SheetTable.h"

#include <algorithm>
#include <unordered_map>

namespace {

struct ProductNames {
    QString name;
    QString catalogue;
};

/// The products of issue lines, each looked up once. A line or product that is gone has no names.
class CLineProducts {
public:
    explicit CLineProducts(CDataStore& store) : m_store(store) {}

    const ProductNames& Of(std::int64_t line) {
        const auto [place, isNew] = m_names.try_emplace(line);
        if (isNew)
            place->second = Read(line);
        return place->second;
    }

private:
    ProductNames Read(std::int64_t line) {
        const RecordsetPtr rows =
            m_store.Query(SqlText("SELECT Product.prod_name, Product.prod_katalog FROM Move_Prod INNER JOIN Product ON "
                                  "Move_Prod.prod_id = Product.prod_id WHERE (Move_Prod.mvprod_id=%li)",
                                  line));
        if (rows->get_EOF())
            return {};
        return {FormatVariant(rows->get_Collect("prod_name")), FormatVariant(rows->get_Collect("prod_katalog"))};
    }

    CDataStore& m_store;
    std::unordered_map<std::int64_t, ProductNames> m_names;
};

Currency InRange(const CPackagingRows& rows) {
    const std::optional<WideCount> kilograms = rows.Kilograms();
    if (!kilograms)
        return Currency::Null();
    if (!IsInRange(*kilograms))
        throw ComError("explain", {}, ResultCode::ErrorsInCommand, QStringLiteral("Hodnota je mimo rozsah měny."));
    return Currency::FromCount(static_cast<std::int64_t>(*kilograms));
}

} // namespace

std::vector<ExplanationRow> ExplainFigure(CDataStore& store, const DateRange& period, Layout layout,
                                          const FigureSheet& sheet, CellPlace place) {
    std::vector<ExplanationRow> list;
    std::vector<std::int64_t> lines;
    {
        CPackagingRows rows(store, sheet.Source(), period, CPackagingRows::Extent::Named);
        while (rows.Next()) {
            const PackagingCodes& codes = rows.Codes();
            if (!sheet.Takes(codes) || sheet.Place(layout, codes) != place)
                continue;
            list.push_back({rows.Key(),
                            rows.Issue(),
                            rows.Document(),
                            rows.Date(),
                            {},
                            {},
                            rows.Cover(),
                            rows.Pieces(),
                            rows.KilogramsEach(),
                            InRange(rows)});
            lines.push_back(rows.Line());
        }
    }
    // Rows that all lack a quantity or a weight make no figure.
    if (std::all_of(list.begin(), list.end(), [](const ExplanationRow& row) { return !row.kilograms.IsValid(); }))
        return {};
    if (sheet.Source() == PackagingSource::Issued) {
        CLineProducts products(store);
        for (std::size_t i = 0; i < list.size(); ++i) {
            const ProductNames& names = products.Of(lines[i]);
            list[i].product = names.name;
            list[i].catalogue = names.catalogue;
        }
    }
    std::stable_sort(list.begin(), list.end(), [](const ExplanationRow& a, const ExplanationRow& b) {
        return a.date.StartOfDay() < b.date.StartOfDay();
    });
    return list;
}
