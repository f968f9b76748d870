#include "ctl/sample/SampleCovers.h"

#include "core/store/DataStore.h"
#include "ctl/sample/Deletion.h"

#include <QString>

namespace {

using Key = CoverKey;

enum : int { Transport = Type::Transport, Group = Type::Group, Sales = Type::Sales, Industrial = Type::Industrial };
enum : int { Imported = Origin::Imported, Bought = Origin::BoughtInland, Made = Origin::MadeInland };
enum : int { Unpaid = Payment::Unpaid, Charged = Payment::Charged, Prepaid = Payment::Prepaid };

enum : int {
    Wood,
    Combined,
    Aluminium,
    Iron,
    LargeAluminium,
    LargeIron,
    Beverage,
    Paper,
    PeSoft,
    PeHard,
    PeLarge,
    PetSoft,
    PetHard,
    PetLarge,
    PpSoft,
    PpHard,
    PpLarge,
    PsSoft,
    PsHard,
    PsLarge,
    PvcSoft,
    PvcHard,
    PvcLarge,
    OtherSoft,
    OtherHard,
    OtherLarge,
    Glass,
    Corrugated,
    OtherMaterial,
    Textile
};

constexpr bool Reusable = true;

constexpr SampleCover Covers[] = {
    {Key::EurPallet, "Paleta EUR 1200×800", Wood, 25'0000, Transport, Bought, Unpaid, Reusable, Stat::EurPallet,
     "výměnná, evidence na skladě A"},
    {Key::PlainPallet, "Paleta prostá 1200×800", Wood, 18'5000, Transport, Bought, Charged, false, Stat::PlainPallet},
    {Key::ReturnablePallet, "Paleta prostá 1200×1000 vratná", Wood, 22'4000, Transport, Bought, Unpaid, Reusable,
     Stat::PlainPallet},
    {Key::ExportCrate, "Dřevěná bedna na vývoz", Wood, 12'3500, Transport, Made, Unpaid, false, 0, "fumigováno"},

    {Key::Carton300, "Krabice klopová 300×200×200", Corrugated, 2150, Group, Bought, Charged},
    {Key::Carton400, "Krabice klopová 400×300×300", Corrugated, 4120, Transport, Bought, Charged},
    {Key::Carton600, "Krabice klopová 600×400×400", Corrugated, 7850, Transport, Bought, Charged},
    {Key::PrintedCarton, "Krabice s potiskem – drogerie", Corrugated, 2865, Group, Made, Prepaid},
    {Key::CanTray, "Podložka pod 24 plechovek", Corrugated, 620, Group, Bought, Charged},

    {Key::PaperBox, "Krabička papírová skládací", Paper, 182, Sales, Made, Charged},
    {Key::FlourBag, "Sáček papírový 1 kg", Paper, 114, Sales, Bought, Charged},
    {Key::PaperLabel, "Etiketa papírová", Paper, 11, Sales, Made, Charged},
    {Key::IndustrialPaperSack, "Pytel papírový 25 kg", Paper, 1455, Industrial, Bought, Charged},

    {Key::ShrinkSix, "Fólie smršťovací na 6 lahví", PeSoft, 183, Group, Bought, Charged},
    {Key::StretchFilm, "Fólie průtažná na paletu", PeSoft, 3050, Transport, Bought, Charged},
    {Key::PlasticBag, "Sáček LDPE", PeSoft, 35, Sales, Bought, Charged},
    {Key::PowderBag, "Sáček vícevrstvý na prací prášek", OtherSoft, 486, Sales, Imported, Charged},

    {Key::PpStrap, "Páska PP vázací", PpSoft, 450, Transport, Bought, Charged},
    {Key::PetStrap, "Páska PET vázací", PetSoft, 525, Transport, Bought, Charged},
    {Key::AdhesiveTape, "Páska lepicí", PpSoft, 45, Transport, Bought, Charged},
    {Key::PpBag, "Sáček PP na těstoviny", PpSoft, 28, Sales, Bought, Charged},
    {Key::BigBag, "Vak velkoobjemový 1000 kg", PpSoft, 1'6200, Industrial, Imported, Unpaid, Reusable},

    {Key::BeerCrate, "Přepravka pivní na 20 lahví", PeHard, 1'9000, Transport, Bought, Prepaid, Reusable, 0, "vratná"},
    {Key::BreadCrate, "Přepravka na pečivo", PpHard, 1'8500, Transport, Bought, Charged, Reusable},
    {Key::GelBottle, "Láhev HDPE na prací gel 1,5 l", PeHard, 784, Sales, Bought, Charged},
    {Key::CleanerBottle, "Láhev HDPE na čistič 750 ml", PeHard, 526, Sales, Bought, Charged},
    {Key::Canister10, "Kanystr HDPE 10 l", PeLarge, 3905, Sales, Bought, Charged},
    {Key::ReturnableCanister, "Kanystr HDPE 20 l vratný", PeLarge, 9850, Sales, Bought, Charged, Reusable},
    {Key::CreamTube, "Tuba na krém 75 ml", PeHard, 96, Sales, Imported, Charged},

    {Key::PetBottle15, "Láhev PET 1,5 l", PetHard, 385, Sales, Made, Charged},
    {Key::PetBottle15Light, "Láhev PET 1,5 l odlehčená", PetHard, 312, Sales, Made, Charged},
    {Key::PetBottle05, "Láhev PET 0,5 l", PetHard, 247, Sales, Made, Charged},
    {Key::PetBottle2, "Láhev PET 2 l", PetHard, 475, Sales, Made, Charged},
    {Key::ShampooBottle, "Láhev PET na šampon 400 ml", PetHard, 324, Sales, Bought, Charged},
    {Key::WaterBarrel, "Barel PET 18,9 l vratný", PetLarge, 7405, Sales, Imported, Prepaid, Reusable},

    {Key::BottleCap, "Uzávěr PP 28 mm", PpHard, 21, Sales, Bought, Charged},
    {Key::Trigger, "Rozprašovač PP", PpHard, 283, Sales, Imported, Charged},
    {Key::PaintBucket, "Kbelík PP 10 l s víkem", PpLarge, 3455, Sales, Bought, Charged},
    {Key::PsCup, "Kelímek PS 150 g", PsHard, 56, Sales, Bought, Charged},
    {Key::FoamTray, "Tácek z pěnového PS", PsSoft, 48, Sales, Bought, Charged},
    {Key::FoamFitting, "Výplň z pěnového PS", PsSoft, 1205, Transport, Imported, Charged},
    {Key::ClingFilm, "Fólie PVC potravinářská", PvcSoft, 75, Sales, Imported, Charged},
    {Key::Blister, "Blistr PVC", PvcHard, 68, Sales, Imported, Charged},
    {Key::DeodorantBody, "Tělo kuličkového deodorantu", OtherHard, 227, Sales, Imported, Charged},
    {Key::LayeredCanister, "Kanystr vícevrstvý 20 l", OtherLarge, 9875, Sales, Imported, Charged},

    {Key::ReturnableBottle, "Láhev skleněná 0,5 l vratná", Glass, 3650, Sales, Bought, Unpaid, Reusable},
    {Key::WineBottle, "Láhev na víno 0,75 l", Glass, 4805, Sales, Imported, Charged},
    {Key::LitreBottle, "Láhev skleněná 1 l", Glass, 5650, Sales, Bought, Charged},
    {Key::PreserveJar, "Sklenice zavařovací 370 ml", Glass, 1855, Sales, Bought, Charged},
    {Key::PerfumeFlask, "Flakon skleněný 50 ml", Glass, 953, Sales, Imported, Charged},
    {Key::Demijohn, "Demižon 25 l vratný", Glass, 6'4000, Industrial, Bought, Charged, Reusable},

    {Key::BeerCan, "Plechovka AL 0,5 l", Aluminium, 162, Sales, Imported, Charged},
    {Key::AluminiumSpray, "Nádobka AL na sprej 150 ml", Aluminium, 313, Sales, Imported, Charged},
    {Key::MilkCan, "Konev AL 25 l vratná", LargeAluminium, 4'2000, Sales, Made, Unpaid, Reusable},
    {Key::FoodCan, "Konzerva 400 g", Iron, 584, Sales, Imported, Charged},
    {Key::SteelSpray, "Nádobka FE na sprej 300 ml", Iron, 723, Sales, Imported, Charged},
    {Key::TwistLid, "Víčko šroubovací", Iron, 85, Sales, Bought, Charged},
    {Key::PaintCan, "Plechovka na barvu 6 l", LargeIron, 6205, Sales, Bought, Charged},
    {Key::KegBarrel, "Sud KEG 50 l", LargeIron, 12'8000, Sales, Bought, Unpaid, Reusable},

    {Key::DrinkCarton, "Nápojový karton 1 l", Beverage, 287, Sales, Imported, Charged, false, Stat::BeverageCarton},
    {Key::SmallDrinkCarton, "Nápojový karton 0,2 l", Beverage, 92, Sales, Imported, Charged, false,
     Stat::BeverageCarton},
    {Key::CoffeeBag, "Sáček kombinovaný na kávu", Combined, 105, Sales, Imported, Charged},
    {Key::CocoaTin, "Dóza kombinovaná na kakao", Combined, 483, Sales, Imported, Charged},
    {Key::PotatoNet, "Síťový pytel 25 kg", Textile, 425, Sales, Bought, Charged},
    {Key::JuteSack, "Pytel jutový vratný", Textile, 2610, Transport, Imported, Unpaid, Reusable},
    {Key::Cork, "Zátka korková", OtherMaterial, 45, Sales, Imported, Charged},
};

constexpr bool IsInOrder() {
    int next = 0;
    for (const SampleCover& cover : Covers)
        if (static_cast<int>(cover.key) != next++)
            return false;
    return next == static_cast<int>(Key::Count);
}
static_assert(IsInOrder());

constexpr Key GivenUp[] = {Key::ClingFilm, Key::Blister, Key::LitreBottle, Key::PetBottle2};

} // namespace

const SampleCover& CoverOf(CoverKey key) {
    return Covers[static_cast<std::size_t>(key)];
}

CCoverIds AddSampleCovers(CDataStore& store) {
    CCoverIds ids;
    const RecordsetPtr table = store.Table("Cover");
    for (const SampleCover& cover : Covers) {
        table->AddNew();
        table->put_Collect("cover_name", QString::fromUtf8(cover.name));
        table->put_Collect("cover_mat", cover.material);
        table->put_Collect("cover_weight", Currency::FromCount(cover.weight));
        table->put_Collect("cover_type", cover.type);
        table->put_Collect("cover_org", cover.origin);
        table->put_Collect("cover_pay", cover.payment);
        table->put_Collect("cover_reusable", cover.reusable);
        table->put_Collect("cover_stat", cover.stat);
        table->put_Collect("cover_note", QString::fromUtf8(cover.note));
        table->put_Collect("deleted", false);
        table->Update();
        ids.Add(table->Long("cover_id"));
    }
    return ids;
}

void DeleteOldCovers(CDataStore& store, const CCoverIds& covers) {
    std::vector<std::int32_t> keys;
    for (const Key key : GivenUp)
        keys.push_back(covers[key]);
    DeleteSelection(store, keys,
                    {"DELETE FROM CoverDiscard WHERE cover_id IN (SELECT id FROM TmpID)",
                     "DELETE FROM CompCover_Item WHERE cover_id IN (SELECT id FROM TmpID)",
                     "UPDATE Cover SET deleted = true WHERE (cover_id IN (SELECT id FROM TmpID))"});
}
