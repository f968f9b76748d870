#pragma once

#include <QString>
#include <QStringList>

/// The fixed lists of Czech texts whose zero-based indexes the tables store.
enum class CodeList { CoverMaterial, CoverOrigin, CoverPayment, CoverType, CoverStat, DiscardType, MoveType };
inline constexpr int CodeListCount = 7;

/// The indexes that a rule names.
namespace Material {
enum : int { Wood = 0, BeverageCarton = 6, Glass = 26, Textile = 29, Count = 30 };
}
namespace Origin {
enum : int { Imported = 0, BoughtInland = 1, MadeInland = 2, Count = 3 };
}
namespace Payment {
enum : int { Unpaid = 0, Charged = 1, Prepaid = 2 };
}
namespace Type {
enum : int { Transport = 0, Group = 1, Sales = 2, Industrial = 3, Count = 4 };
}
namespace Stat {
enum : int { NoPallet = 0, EurPallet = 1, PlainPallet = 2, BeverageCarton = 3, Count = 4 };
}

QStringList MakeCodeList(CodeList list);
