#pragma once

/// The messages that the registers share.
namespace Text {
inline constexpr const char* NoProduct = "Není vybrán produkt !";
inline constexpr const char* NoCover = "Není vybrán obal !";
inline constexpr const char* NoDate = "Není vybráno datum !";
inline constexpr const char* NoIssue = "Není vybrán doklad !";
inline constexpr const char* NoDiscard = "Není vybrán vyřazený obal !";
inline constexpr const char* QuantityNotPositive = "Množství musí být větší než 0 !";
inline constexpr const char* DeleteCoverRow = "Opravdu si přejete odstranit ze seznamu obal\n\"%s\" ?";
inline constexpr const char* DeleteProductRow = "Opravdu si přejete odstranit ze seznamu produkt\n\"%s\" ?";
inline constexpr const char* DeleteDate = "Opravdu si přejete odstranit ze seznamu platnost\n\"%s\" ?";
inline constexpr const char* DeleteDiscard = "Opravdu si přejete odstranit ze seznamu obal vyřazený \"%s\" ?";
inline constexpr const char* RecordVanished = "Záznam byl odstraněn jinou aplikací!";
// The first two end without a question mark.
inline constexpr const char* DeleteCovers = "Opravdu si přejete odstranit vybrané kuvel";
inline constexpr const char* DeleteProducts = "Opravdu si přejete odstranit vybrané produkty";
inline constexpr const char* DeleteIssues = "Opravdu si přejete odstranit vybrané výdeje?";
} // namespace Text
