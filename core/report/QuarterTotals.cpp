#include "core/report/QuarterTotals.h"

#include <unordered_map>

namespace {

struct CodesHash {
    static std::size_t Mix(std::size_t hash, std::int64_t code) {
        return (hash ^ static_cast<std::size_t>(code)) * 0x9E3779B97F4A7C15ULL;
    }
    static std::int64_t Number(std::optional<bool> answer) { return answer ? (*answer ? 2 : 1) : 0; }

    std::size_t operator()(const PackagingCodes& codes) const {
        std::size_t hash = 0;
        for (const std::int64_t code : {codes.material, codes.type, codes.share, codes.payment, codes.stat,
                                        3 * Number(codes.reusable) + Number(codes.exported)})
            hash = Mix(hash, code);
        return hash ^ (hash >> 32);
    }
};

void Add(PackagingTotal& total, const CPackagingRows& rows) {
    const std::optional<WideCount> kilograms = rows.Kilograms();
    if (!kilograms)
        return;
    if (IsInRange(*kilograms))
        total.kilograms = total.kilograms.value_or(0) + *kilograms;
    else if (!total.outOfRangeKey)
        total.outOfRangeKey = rows.Key();
}

std::vector<PackagingTotal> Read(CDataStore& store, PackagingSource source, const DateRange& period) {
    std::vector<PackagingTotal> totals;
    std::unordered_map<PackagingCodes, std::size_t, CodesHash> places;
    CPackagingRows rows(store, source, period, CPackagingRows::Extent::Codes);
    while (rows.Next()) {
        const auto [place, isNew] = places.try_emplace(rows.Codes(), totals.size());
        if (isNew)
            totals.push_back({place->first, {}, {}});
        Add(totals[place->second], rows);
    }
    return totals;
}

} // namespace

const std::vector<PackagingTotal>& CQuarterTotals::Of(PackagingSource source) {
    std::optional<std::vector<PackagingTotal>>& totals = source == PackagingSource::Issued ? m_issued : m_discarded;
    if (!totals)
        totals = Read(m_store, source, m_period);
    return *totals;
}
