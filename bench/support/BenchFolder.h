#pragma once

#include <QTemporaryDir>

#include <string>

/// A program folder for one benchmark, with a database made by plain SQL over the delivered empty one.
class BenchFolder {
public:
    BenchFolder();

    std::string Database() const;
    /// Runs plain SQL with the fastest settings; what it makes is the data, not the work.
    void Sql(const std::string& sql) const;
    /// Keeps the database as it is now, and puts that state back.
    void Keep() const;
    void Restore() const;

private:
    QTemporaryDir m_folder;
};

/// `count` issue lines of as many issues over 2003 to 2012, 2,000 products with two definitions of four rows each, 100
/// covers, and four packaging rows a line.
void FillIssues(const BenchFolder& folder, int count);
