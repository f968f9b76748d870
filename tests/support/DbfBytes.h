#pragma once

#include <QByteArray>
#include <QString>

#include <set>
#include <vector>

/// A dBase table, byte by byte, as a test needs it.
struct DbfBytes {
    struct Column {
        const char* name;
        char type;
        int width;
        int decimals = 0;
    };

    std::vector<Column> columns;
    /// Values as the file holds them (Windows-1250 unless it is marked otherwise); padded to the width, numbers on the
    /// left.
    std::vector<std::vector<QByteArray>> rows;
    std::set<std::size_t> deleted;
    unsigned char kind = 0x03;
    unsigned char codePageMark = 0;
    bool endMark = true;

    QByteArray Make() const;
    /// What stands before the records, of which there are so many.
    QByteArray Head(std::size_t records) const;
};

/// A row of texts that any program may have written, in Windows-1250.
std::vector<QByteArray> DbfRow(const std::vector<QString>& values);
