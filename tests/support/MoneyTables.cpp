#include "tests/support/MoneyTables.h"

DbfBytes StockCards() {
    return {{{"Cislo", 'N', 10}, {"Popis", 'C', 40}, {"Katalog", 'C', 20}, {"MJ", 'C', 10}}, {}, {}};
}

DbfBytes StockDocuments() {
    return {{{"CDokladu", 'N', 10}, {"CisloDokla", 'C', 10}, {"Datum", 'D', 8}, {"Typ", 'C', 1}, {"A_Stat", 'C', 30}},
            {},
            {}};
}

DbfBytes StockLines() {
    return {{{"TypDokladu", 'C', 1},
             {"CDokladu", 'N', 10},
             {"CisloPoloz", 'N', 6},
             {"CKmenKarty", 'N', 10},
             {"Nazev", 'C', 40},
             {"Katalog", 'C', 20},
             {"MJ", 'C', 10},
             {"PocetMJ", 'N', 16, 4}},
            {},
            {}};
}

DbfBytes Invoices() {
    return {{{"Cislo", 'N', 10},
             {"Doklad", 'C', 10},
             {"DatSkPoh", 'D', 8},
             {"Storno", 'N', 2},
             {"FlagDel", 'L', 1},
             {"O_Stat", 'C', 30}},
            {},
            {}};
}
