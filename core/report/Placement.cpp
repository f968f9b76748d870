#include "core/report/Placement.h"

#include "core/base/CodeLists.h"

namespace {

constexpr int NotPlaced = 0;

/// The rows of the old layout, by material. The reusable sheets have no row of beverage cartons, so what stands below
/// it is one row higher there.
struct MaterialRow {
    int oneWay;
    int reusable;
    bool salesOnly = false;
};

constexpr MaterialRow MaterialRows[Material::Count] = {
    {32, 31},              // dřevo
    {31, 30},              // kombinované materiály
    {27, 27},              // kovy - hliník AL
    {26, 26},              // kovy - železo FE
    {29, 29, true},        // kovy nad 5l- hliník AL
    {28, 28, true},        // kovy nad 5l - železo FE
    {30, NotPlaced, true}, // nápojové kartony
    {24, 24},              // papír
    {6, 6},                // PE - měkké
    {12, 12},              // PE - pevné duté
    {18, 18, true},        // PE - pevné duté nad 5l
    {5, 5},                // PET - měkké
    {11, 11},              // PET - pevné duté
    {17, 17, true},        // PET - pevné duté nad 5l
    {8, 8},                // PP - měkké
    {14, 14},              // PP - pevné duté
    {20, 20, true},        // PP - pevné duté nad 5l
    {9, 9},                // PS - měkké
    {15, 15},              // PS - pevné duté
    {21, 21, true},        // PS - pevné duté nad 5l
    {7, 7},                // PVC - měkké
    {13, 13},              // PVC - pevné duté
    {19, 19, true},        // PVC - pevné duté nad 5l
    {10, 10},              // plasty jiné - měkké
    {16, 16},              // plasty jiné - pevné duté
    {22, 22, true},        // plasty jiné - pevné duté nad 5l
    {25, 25},              // sklo
    {23, 23},              // vlnitá lepenka
    {34, 33},              // jiný materiál
    {33, 32},              // textil
};

/// By type: the first of its three columns.
constexpr int TypeColumns[] = {8, 5, 2, 11};
/// By origin or kind of discard: the column among the three.
constexpr int ShareOffsets[] = {1, 2, 0};

template <class T, std::size_t N>
constexpr const T* At(const T (&table)[N], std::int64_t index) {
    return index >= 0 && index < static_cast<std::int64_t>(N) ? &table[index] : nullptr;
}

} // namespace

QString CellText(CellPlace place) {
    return QChar(static_cast<char16_t>(u'A' + place.column)) + QString::number(place.row);
}

std::optional<CellPlace> ParseCell(const QString& text) {
    if (text.size() < 2)
        return {};
    const char16_t column = text[0].toUpper().unicode();
    bool isNumber = false;
    const uint row = QStringView(text).mid(1).toUInt(&isNumber);
    if (column < u'A' || column > u'Z' || !isNumber || row == 0 || row > 65536 || !text[1].isDigit())
        return {};
    return CellPlace{static_cast<int>(row), column - u'A'};
}

QString RangeText(CellPlace place) {
    const QString cell = CellText(place);
    return cell + u':' + cell;
}

std::optional<CellPlace> PlaceMaterial(Layout layout, bool reusable, std::int64_t material, std::int64_t type,
                                       std::int64_t share) {
    const MaterialRow* row = At(MaterialRows, material);
    const int* column = At(TypeColumns, type);
    const int* offset = At(ShareOffsets, share);
    if (!row || !column || !offset)
        return {};
    if (type == Type::Industrial && layout == Layout::Old)
        return {};
    if (row->salesOnly && type != Type::Sales)
        return {};
    if (material == Material::Glass && type != Type::Sales && type != Type::Industrial)
        return {};
    const int oldRow = reusable ? row->reusable : row->oneWay;
    if (oldRow == NotPlaced)
        return {};
    return CellPlace{layout == Layout::New ? oldRow + 1 : oldRow, *column + *offset};
}

std::optional<CellPlace> PlaceStat(Layout layout, std::int64_t stat, std::optional<bool> reusable) {
    constexpr int reusableColumn = 4;
    constexpr int oneWayColumn = 7;
    // Unlike the materials, these stand one row higher in the new layout.
    const int firstRow = layout == Layout::New ? 5 : 6;
    switch (stat) {
    case Stat::EurPallet:
        return reusable == true ? std::optional(CellPlace{firstRow, reusableColumn}) : std::nullopt;
    case Stat::PlainPallet:
        return CellPlace{firstRow + 1, reusable == true ? reusableColumn : oneWayColumn};
    case Stat::BeverageCarton:
        return reusable == false ? std::optional(CellPlace{firstRow + 2, oneWayColumn}) : std::nullopt;
    default:
        return {};
    }
}
