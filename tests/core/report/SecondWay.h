#pragma once

#include <map>
#include <string>
#include <vector>

struct sqlite3;

/// The row of a material on the form before version 2.0; 0 for one that the sheets of reusable packaging lack.
int FormRow(long long material, bool reusable);
/// The cell, "C33", of a material, a type and an origin (of a discard: its kind); empty where the form has none.
std::string FormCell(long long material, long long type, long long third, bool reusable, bool newForm);

/// The packaging and the figures worked out from the raw tables alone, without the store, the rules or the report: what
/// those compute must come out the same.
class CSecondWay {
public:
    explicit CSecondWay(const std::string& databasePath);
    ~CSecondWay();
    CSecondWay(const CSecondWay&) = delete;
    CSecondWay& operator=(const CSecondWay&) = delete;

    /// One text a row, sorted: line, issue, cover, ten-thousandths, type, origin, payment.
    using Packaging = std::vector<std::string>;
    /// What the definitions say about the lines of products that still have any.
    Packaging PackagingByDefinition() const;
    Packaging PackagingStored() const;

    /// "1-1,C33" and the ten-thousandths of a tonne. The months and days are inclusive, as YYYYMMDD.
    std::map<std::string, long long> Figures(long long from, long long to, bool newForm) const;

private:
    using Row = std::vector<long long>;
    std::vector<Row> Read(const char* sql) const;

    sqlite3* m_database = nullptr;
};
