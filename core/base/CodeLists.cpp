#include "core/base/CodeLists.h"

QStringList MakeCodeList(CodeList list) {
    switch (list) {
    case CodeList::CoverMaterial:
        return {"dřevo",
                "kombinované materiály",
                "kovy - hliník AL",
                "kovy - železo FE",
                "kovy nad 5l- hliník AL",
                "kovy nad 5l - železo FE",
                "nápojové kartony",
                "papír",
                "PE - měkké",
                "PE - pevné duté",
                "PE - pevné duté nad 5l",
                "PET - měkké",
                "PET - pevné duté",
                "PET - pevné duté nad 5l",
                "PP - měkké",
                "PP - pevné duté",
                "PP - pevné duté nad 5l",
                "PS - měkké",
                "PS - pevné duté",
                "PS - pevné duté nad 5l",
                "PVC - měkké",
                "PVC - pevné duté",
                "PVC - pevné duté nad 5l",
                "plasty jiné - měkké",
                "plasty jiné - pevné duté",
                "plasty jiné - pevné duté nad 5l",
                "sklo",
                "vlnitá lepenka",
                "jiný materiál",
                "textil"};
    case CodeList::CoverOrigin:
        return {"dovezený do ČR", "nakoupený v ČR", "vyrobený v ČR"};
    case CodeList::CoverPayment:
        return {"neplacený", "zpoplatněný", "předplacený"};
    case CodeList::CoverType:
        return {"přepravní", "skupinový", "prodejní", "průmyslový"};
    case CodeList::CoverStat:
        return {"obal není paleta", "paleta EUR (ČSN 269110)", "paleta prostá (ČSN 269111)", "nápojové kartony"};
    case CodeList::DiscardType:
        return {"energeticky využito", "odstraněno", "recyklováno"};
    case CodeList::MoveType:
        return {"dodací list", "faktura", "prodejka", "výdejka"};
    }
    return {};
}
