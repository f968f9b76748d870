#include "core/rules/ChangeReach.h"

#include "core/base/CzechCount.h"
#include "core/base/SqlText.h"
#include "core/rules/Propagation.h"
#include "core/store/DataStore.h"

#include <QStringList>

#include <set>

namespace {

/// More quarters than these are told by the first and the last.
constexpr std::size_t NamedQuarters = 4;

constexpr CountedNoun Lines{"položky výdejů", "položek výdejů", "položek výdejů"};

QString QuarterName(int quarter) {
    return QStringLiteral("%1/%2").arg(quarter % 4 + 1).arg(quarter / 4);
}

/// Of the quarters of issue lines: a row a line, or a row with the number of lines as "n".
class CReach {
public:
    void Add(const CRecordset& line, std::int64_t lines) {
        m_lines += lines;
        const DateTime date = ToDate(line.get_Collect("move_date"));
        if (date.IsValid())
            m_quarters.insert(date.Year() * 4 + (date.Month() - 1) / 3);
    }
    QString Text() const {
        if (m_lines == 0)
            return {};
        return QStringLiteral("Změní kuvel ") + Counted(m_lines, Lines) + Quarters();
    }

private:
    QString Quarters() const {
        if (m_quarters.empty())
            return {};
        if (m_quarters.size() == 1)
            return QStringLiteral(", ve čtvrtletí ") + QuarterName(*m_quarters.begin());
        if (m_quarters.size() > NamedQuarters)
            return QStringLiteral(", ve čtvrtletích od %1 do %2")
                .arg(QuarterName(*m_quarters.begin()), QuarterName(*m_quarters.rbegin()));
        QStringList names;
        for (const int quarter : m_quarters)
            names.append(QuarterName(quarter));
        return QStringLiteral(", ve čtvrtletích ") + names.join(QStringLiteral(", "));
    }

    std::int64_t m_lines = 0;
    /// Each as year × 4 + 0 to 3.
    std::set<int> m_quarters;
};

} // namespace

QString ReachOfCover(CDataStore& store, const PropagationOptions& options, std::int32_t coverId) {
    if (options.coversToIssues == 0)
        return {};
    CReach reach;
    const RecordsetPtr lines = store.Query(
        SqlText("SELECT Move_Cover.mvprod_id, Move.move_date FROM Move_Cover INNER JOIN Move ON Move_Cover.move_id = "
                "Move.move_id WHERE Move_Cover.cover_id = %li GROUP BY Move_Cover.mvprod_id, Move.move_date",
                coverId));
    for (; !lines->get_EOF(); lines->MoveNext())
        reach.Add(*lines, 1);
    return reach.Text();
}

QString ReachOfPackaging(CDataStore& store, const PropagationOptions& options, std::int32_t prodId) {
    if (options.packagingToIssues == 0)
        return {};
    CReach reach;
    const RecordsetPtr days = store.Query(
        SqlText("SELECT Move.move_date, COUNT(*) AS n FROM Move_Prod INNER JOIN Move ON Move_Prod.move_id = "
                "Move.move_id WHERE Move_Prod.prod_id = %li GROUP BY Move.move_date",
                prodId));
    for (; !days->get_EOF(); days->MoveNext())
        reach.Add(*days, days->Long("n"));
    return reach.Text();
}

QString ReachOfRecomputation(CDataStore& store) {
    CReach reach;
    const RecordsetPtr days = store.Query("SELECT Move.move_date, COUNT(*) AS n FROM Move_Prod INNER JOIN Move ON "
                                          "Move_Prod.move_id = Move.move_id GROUP BY Move.move_date");
    for (; !days->get_EOF(); days->MoveNext())
        reach.Add(*days, days->Long("n"));
    const RecordsetPtr lost = store.Query("SELECT COUNT(*) AS n FROM Move_Prod INNER JOIN Product ON "
                                          "Move_Prod.prod_id = Product.prod_id WHERE Product.deleted = TRUE");
    const std::int32_t left = lost->Long("n");
    if (left == 0)
        return reach.Text();
    return reach.Text() + QStringLiteral("; o kuvel přijde ") + GroupedNumber(left) +
           QStringLiteral(" položek odstraněných produktů");
}
