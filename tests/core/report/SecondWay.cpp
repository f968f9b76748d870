#include "tests/core/report/SecondWay.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <algorithm>

namespace {

/// Where the form has each material, before version 2.0: the row of the one-way sheets, that of the reusable ones (0
/// for none), and whether only sales packaging counts.
struct Row {
    int oneWay, reusable;
    bool salesOnly;
};

constexpr Row Rows[] = {
    {32, 31, false}, {31, 30, false}, {27, 27, false}, {26, 26, false}, {29, 29, true},  {28, 28, true},
    {30, 0, true},   {24, 24, false}, {6, 6, false},   {12, 12, false}, {18, 18, true},  {5, 5, false},
    {11, 11, false}, {17, 17, true},  {8, 8, false},   {14, 14, false}, {20, 20, true},  {9, 9, false},
    {15, 15, false}, {21, 21, true},  {7, 7, false},   {13, 13, false}, {19, 19, true},  {10, 10, false},
    {16, 16, false}, {22, 22, true},  {25, 25, false}, {23, 23, false}, {34, 33, false}, {33, 32, false},
};
constexpr int Glass = 26;

/// By type, then by origin or kind of discard.
constexpr const char* Columns[] = {"JKI", "GHF", "DEC", "MNL"};

std::string StatCell(long long stat, bool reusable, bool newForm) {
    const std::string column = reusable ? "E" : "H";
    if (stat == 1 && reusable)
        return column + (newForm ? "5" : "6");
    if (stat == 2)
        return column + (newForm ? "6" : "7");
    return stat == 3 && !reusable ? column + (newForm ? "7" : "8") : std::string();
}

/// Pieces times kilograms, to the nearest ten-thousandth, ties to the even one.
long long Weight(long long pieces, long long kilograms) {
    const long long product = pieces * kilograms;
    const long long rest = product % 10000;
    const long long whole = product / 10000;
    return whole + (rest > 5000 || (rest == 5000 && whole % 2 == 1) ? 1 : 0);
}

} // namespace

int FormRow(long long material, bool reusable) {
    return reusable ? Rows[material].reusable : Rows[material].oneWay;
}

std::string FormCell(long long material, long long type, long long third, bool reusable, bool newForm) {
    if (material < 0 || material > 29 || type < 0 || type > (newForm ? 3 : 2) || third < 0 || third > 2)
        return {};
    const int row = FormRow(material, reusable);
    const bool sales = type == 2;
    if (row == 0 || (Rows[material].salesOnly && !sales) || (material == Glass && !sales && type != 3))
        return {};
    return Columns[type][third] + std::to_string(row + (newForm ? 1 : 0));
}

CSecondWay::CSecondWay(const std::string& databasePath) {
    EXPECT_EQ(SQLITE_OK, sqlite3_open_v2(databasePath.c_str(), &m_database, SQLITE_OPEN_READONLY, nullptr));
}

CSecondWay::~CSecondWay() {
    sqlite3_close(m_database);
}

std::vector<CSecondWay::Row> CSecondWay::Read(const char* sql) const {
    std::vector<Row> rows;
    sqlite3_stmt* statement = nullptr;
    EXPECT_EQ(SQLITE_OK, sqlite3_prepare_v2(m_database, sql, -1, &statement, nullptr)) << sql;
    while (sqlite3_step(statement) == SQLITE_ROW) {
        Row row;
        for (int i = 0; i < sqlite3_column_count(statement); ++i)
            row.push_back(sqlite3_column_type(statement, i) == SQLITE_NULL ? -1 : sqlite3_column_int64(statement, i));
        rows.push_back(row);
    }
    sqlite3_finalize(statement);
    return rows;
}

static std::string Joined(const std::vector<long long>& values) {
    std::string text;
    for (const long long value : values)
        text += (text.empty() ? "" : " ") + std::to_string(value);
    return text;
}

CSecondWay::Packaging CSecondWay::PackagingByDefinition() const {
    std::map<long long, std::vector<std::pair<long long, long long>>> definitions; // product: day and key
    for (const Row& row : Read("SELECT prod_id, replace(substr(dt_from, 1, 10), '-', ''), dt_id FROM Prod_CoverDT"))
        definitions[row[0]].emplace_back(row[1], row[2]);
    std::map<long long, std::vector<Row>> contents;
    for (const Row& row : Read("SELECT dt_id, cover_id, cp_qtycover, cp_qtyprod, cp_usealways, cp_usefrom, cp_useto, "
                               "cover_type, cover_org, cover_pay FROM Prod_Cover"))
        contents[row[0]].push_back(row);
    std::map<long long, long long> days;
    for (const Row& row : Read("SELECT move_id, replace(substr(move_date, 1, 10), '-', '') FROM Move"))
        days[row[0]] = row[1];
    Packaging packaging;
    for (const Row& line : Read("SELECT mvprod_id, move_id, prod_id, mvprod_qty FROM Move_Prod")) {
        std::pair<long long, long long> inForce{0, 0};
        for (const auto& definition : definitions[line[2]])
            if (definition.first <= days[line[1]])
                inForce = std::max(inForce, definition);
        for (const Row& row : contents[inForce.second]) {
            if (row[4] == 0 && (line[3] < row[5] || line[3] > row[6]))
                continue;
            const long long packages = line[3] / row[3];
            packaging.push_back(Joined({line[0], line[1], row[1], packages * row[2], row[7], row[8], row[9]}));
        }
    }
    std::sort(packaging.begin(), packaging.end());
    return packaging;
}

CSecondWay::Packaging CSecondWay::PackagingStored() const {
    Packaging packaging;
    for (const Row& row : Read("SELECT c.mvprod_id, c.move_id, cover_id, mvcover_qty, cover_type, cover_org, cover_pay "
                               "FROM Move_Cover AS c JOIN Move_Prod AS l ON l.mvprod_id = c.mvprod_id "
                               "WHERE l.prod_id IN (SELECT prod_id FROM Prod_CoverDT)"))
        packaging.push_back(Joined(row));
    std::sort(packaging.begin(), packaging.end());
    return packaging;
}

std::map<std::string, long long> CSecondWay::Figures(long long from, long long to, bool newForm) const {
    std::map<long long, Row> covers;
    for (const Row& row : Read("SELECT cover_id, cover_mat, cover_weight, cover_reusable, cover_stat, cover_type "
                               "FROM Cover"))
        covers[row[0]] = row;
    std::map<long long, Row> issues;
    for (const Row& row : Read("SELECT move_id, replace(substr(move_date, 1, 10), '-', ''), move_export FROM Move"))
        issues[row[0]] = row;
    std::map<std::string, long long> kilograms;
    const auto add = [&](const std::string& sheet, const std::string& cell, long long weight) {
        if (!cell.empty())
            kilograms[sheet + "," + cell] += weight;
    };
    for (const Row& row :
         Read("SELECT move_id, cover_id, mvcover_qty, cover_type, cover_org, cover_pay FROM Move_Cover")) {
        const Row& issue = issues[row[0]];
        const Row& cover = covers[row[1]];
        if (issue[1] < from || issue[1] > to)
            continue;
        const long long weight = Weight(row[2], cover[2]);
        // The fourth sheet is the exported packaging; the others are charged, prepaid, unpaid.
        const char* const sheet = issue[2] != 0 ? "4" : row[5] == 1 ? "1" : row[5] == 2 ? "2" : "3";
        const bool reusable = cover[3] != 0;
        add(std::string(reusable ? "2-" : "1-") + sheet, FormCell(cover[1], row[3], row[4], reusable, newForm), weight);
        add("4-1", StatCell(cover[4], reusable, newForm), weight);
    }
    for (const Row& row : Read("SELECT cover_id, replace(substr(disc_date, 1, 10), '-', ''), disc_qty, disc_type "
                               "FROM CoverDiscard")) {
        const Row& cover = covers[row[0]];
        if (row[1] >= from && row[1] <= to && cover[3] != 0)
            add("3-1", FormCell(cover[1], cover[5], row[3], true, newForm), Weight(row[2], cover[2]));
    }
    for (auto& [cell, weight] : kilograms)
        weight /= 1000;
    return kilograms;
}
