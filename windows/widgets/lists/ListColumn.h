#pragma once

#include <QString>

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <vector>

class CDataStore;
class CRecordset;

/// What a cell shows.
struct ListCell {
    /// Only words are ordered as they are read, so that a list sorted by them can be halved in a search.
    enum class Kind : std::uint8_t { Words, Number, Other };

    ListCell() = default;
    // A bare text is one of words: most columns have nothing more to say.
    ListCell(QString words) : text(std::move(words)) {} // NOLINT(google-explicit-constructor)
    ListCell(QString shown, Kind what, QString whole = {})
        : text(std::move(shown)), exact(std::move(whole)), kind(what) {}

    QString text;
    /// The value without rounding, where the text may be rounded.
    QString exact;
    Kind kind = Kind::Words;
};

/// A cell, made from the recordset's current record. May raise ComError.
using CellText = std::function<ListCell(const CDataStore& store, const CRecordset& record)>;

struct ListColumn {
    QString header;
    CellText text;
    /// What a click on the header sorts by; null: the list's default.
    const char* sortField = nullptr;
};

/// The column of a known field: its caption, and its value as every list shows it; a code as its text, and the range of
/// a packaging row that applies to any quantity as "-". A click on the header sorts by the field, or by what is named.
ListColumn Column(const char* field, const char* sortField = nullptr);
std::vector<ListColumn> Columns(std::initializer_list<const char*> fields);

/// What a list shows and how it behaves; the rows come with each fill.
struct ListSpec {
    /// The row to select after a fill when no id was asked for, or when it is not there.
    enum class Fallback { First, Last, None };

    QString objectName;
    std::vector<ListColumn> columns;
    /// The column that holds the record's key, the row's item data.
    const char* keyField = nullptr;
    const char* defaultSort = nullptr;
    int sortColumn = 0;
    bool multiSelection = false;
    bool clickableHeader = true;
    /// Grid lines, and columns that can be dragged to another place.
    bool grid = true;
    Fallback fallback = Fallback::First;
    /// Whether a fill that asks for no id selects again what was selected before it.
    bool keepsSelection = true;
};

/// A list to choose one record from: in the order of its query, with nothing chosen first.
ListSpec PickerList(const char* objectName, const char* keyField, std::vector<ListColumn> columns);
