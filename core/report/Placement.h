#pragma once

#include <QString>

#include <compare>
#include <cstdint>
#include <optional>

/// The figure sheets of the forms before version 2.0, and from it on: those have industrial packaging too.
enum class Layout { Old, New };

/// A cell: the column counted from 0 (A), the row from 1.
struct CellPlace {
    int row = 0;
    int column = 0;

    // The comparison that the compiler writes is taken for one with a null pointer.
    // NOLINTNEXTLINE(modernize-use-nullptr)
    friend auto operator<=>(const CellPlace&, const CellPlace&) = default;
};

/// "D11".
QString CellText(CellPlace place);
/// The cell of a text such as "D11" or "d11"; nothing for any other text.
std::optional<CellPlace> ParseCell(const QString& text);
/// "D11:D11".
QString RangeText(CellPlace place);

/// Where the form has the total of a material and type. `share` is the third code: the origin of issued packaging, the
/// kind of a discard. Nothing for codes that the form has no cell for; such packaging is not reported.
std::optional<CellPlace> PlaceMaterial(Layout layout, bool reusable, std::int64_t material, std::int64_t type,
                                       std::int64_t share);

/// Where the form has the total of a pallet or carton code. `reusable` is nothing when the cover does not say.
std::optional<CellPlace> PlaceStat(Layout layout, std::int64_t stat, std::optional<bool> reusable);
