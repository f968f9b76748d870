#include "ctl/sample/SampleIssues.h"

#include "core/base/SqlText.h"
#include "core/rules/IssueLines.h"
#include "core/store/CommitGroup.h"

#include <algorithm>
#include <array>
#include <set>

namespace {

constexpr int IssueCount = 3000;
constexpr int FirstYear = 2009;
constexpr int LastYear = 2012;
constexpr int LastYearOfSale = 2010;
const DateTime FirstDay = DateTime::FromDay(FirstYear, 1, 1);
constexpr int DayCount = 4 * 365 + 1;

/// Five issues have fifteen lines, dealt anew each time.
class LineCounts {
public:
    int Next(CSequence& sequence) {
        if (m_next == static_cast<int>(m_counts.size())) {
            for (std::size_t i = m_counts.size() - 1; i > 0; --i)
                std::swap(m_counts[i], m_counts[static_cast<std::size_t>(sequence.Between(0, static_cast<int>(i)))]);
            m_next = 0;
        }
        return m_counts[static_cast<std::size_t>(m_next++)];
    }

private:
    std::array<int, 5> m_counts = {1, 2, 3, 4, 5};
    int m_next = 5;
};

/// The days pass evenly; nothing is issued on Sundays.
DateTime DayOfIssue(int number) {
    const DateTime day = FirstDay.AddDays(number * DayCount / IssueCount);
    // 1 January 1970 was a Thursday.
    const bool sunday = (day.SecondsSince1970() / 86400 + 4) % 7 == 0;
    return sunday ? day.AddDays(1) : day;
}

int DrawMoveType(CSequence& sequence) {
    const int drawn = sequence.Between(1, 100);
    return drawn <= 50 ? 0 : drawn <= 80 ? 1 : drawn <= 92 ? 2 : 3;
}

/// "DL12-0042": each document type counts through the year.
class Numbering {
public:
    QString Next(int type, int year) {
        constexpr std::array<const char*, 4> Prefixes = {"DL", "FV", "PR", "VY"};
        if (year != m_year) {
            m_year = year;
            m_last = {};
        }
        const auto index = static_cast<std::size_t>(type);
        return MessageText("%s%02i-%04i", Prefixes[index], year % 100, ++m_last[index]);
    }

private:
    int m_year = 0;
    std::array<int, 4> m_last = {};
};

Currency DrawQuantity(const SampleProduct& product, CSequence& sequence) {
    // Now and then a whole lorry.
    int pieces = product.carton * (sequence.Chance(12) ? sequence.Between(40, 160) : sequence.Between(1, 30));
    if (product.byWeight)
        return Currency::FromCount(pieces * Currency::One + (sequence.Chance(30) ? sequence.Between(1, 99) * 2500 : 0));
    if (product.carton > 1 && sequence.Chance(20))
        pieces += sequence.Between(1, product.carton - 1);
    return Currency::FromWhole(pieces);
}

const SampleProduct& DrawProduct(const SampleProducts& products, int year, CSequence& sequence) {
    const bool old = year <= LastYearOfSale && sequence.Chance(3);
    const std::vector<SampleProduct>& from = old ? products.discontinued : products.current;
    return from[static_cast<std::size_t>(sequence.Between(0, static_cast<int>(from.size()) - 1))];
}

class IssueWriter {
public:
    explicit IssueWriter(CDataStore& store) : m_issues(store.Table("Move")), m_lines(store) {}

    void AddIssue(const QString& number, const DateTime& day, int type, bool exported) {
        m_day = day;
        m_issues->AddNew();
        m_issues->put_Collect("move_num", number);
        m_issues->put_Collect("move_date", day);
        m_issues->put_Collect("move_type", type);
        m_issues->put_Collect("move_export", exported);
        m_issues->Update();
    }

    void AddLine(std::int32_t product, Currency quantity) {
        m_lines.Add(m_issues->get_Collect("move_id"), product, quantity, m_day);
    }

private:
    RecordsetPtr m_issues;
    CIssueLines m_lines;
    DateTime m_day;
};

} // namespace

void AddSampleIssues(CDataStore& store, CCommitGroup& group, const SampleProducts& products, CSequence& sequence) {
    IssueWriter writer(store);
    LineCounts lineCounts;
    Numbering numbering;
    for (int number = 0; number < IssueCount; ++number) {
        const DateTime day = DayOfIssue(number);
        const int type = DrawMoveType(sequence);
        const bool exported = type <= 1 && sequence.Chance(14);
        writer.AddIssue(numbering.Next(type, day.Year()), day, type, exported);
        std::set<std::int32_t> issued;
        for (int left = lineCounts.Next(sequence); left > 0;) {
            const SampleProduct& product = DrawProduct(products, day.Year(), sequence);
            if (!issued.insert(product.id).second)
                continue;
            writer.AddLine(product.id, DrawQuantity(product, sequence));
            --left;
        }
        group.RecordDone();
    }
}

void AddSampleDiscards(CDataStore& store, const CCoverIds& covers, CSequence& sequence) {
    constexpr int PerQuarter = 9;
    std::vector<CoverKey> reusable;
    for (int key = 0; key < static_cast<int>(CoverKey::Count); ++key)
        if (CoverOf(static_cast<CoverKey>(key)).reusable)
            reusable.push_back(static_cast<CoverKey>(key));
    const RecordsetPtr discards = store.Table("CoverDiscard");
    int number = 0;
    for (int year = FirstYear; year <= LastYear; ++year)
        for (int month = 1; month <= 12; month += 3)
            for (int i = 0; i < PerQuarter; ++i, ++number) {
                const CoverKey cover = reusable[static_cast<std::size_t>(number) % reusable.size()];
                discards->AddNew();
                discards->put_Collect("cover_id", covers[cover]);
                discards->put_Collect("disc_date",
                                      DateTime::FromDay(year, month + i / 3, i == PerQuarter - 1 ? 30 : 1 + 3 * i));
                discards->put_Collect("disc_qty", Currency::FromWhole(sequence.Between(1, 60)));
                discards->put_Collect("disc_type", number % 3);
                discards->Update();
            }
}
