#include "ctl/sample/SampleComposites.h"

#include "core/store/DataStore.h"

#include <QString>

namespace {

using enum CoverKey;
constexpr std::int64_t One = Currency::One;

const std::vector<SampleComposite>& Composites() {
    using Key = CompositeKey;
    static const std::vector<SampleComposite> composites = {
        {Key::PetLitreAndHalf,
         "PET 1,5 l po šesti na paletě EUR",
         "84 balíků na paletě",
         {{PetBottle15}, {BottleCap}, {PaperLabel}, {ShrinkSix, 6}, {StretchFilm, 504}, {EurPallet, 504}}},
        {Key::PetHalfLitre,
         "PET 0,5 l po dvanácti",
         nullptr,
         {{PetBottle05}, {BottleCap}, {PaperLabel}, {ShrinkSix, 12}, {StretchFilm, 1296}, {EurPallet, 1296}}},
        {Key::BeerInCrates,
         "Vratné láhve v přepravce",
         "zálohováno",
         {{ReturnableBottle},
          {BottleCap, 1, One, 0, 0, -1, Origin::MadeInland},
          {PaperLabel},
          {BeerCrate, 20},
          {ReturnablePallet, 800}}},
        {Key::PreserveJars,
         "Zavařovací sklenice v kartonu",
         nullptr,
         {{PreserveJar}, {TwistLid}, {PaperLabel}, {Carton300, 8}, {StretchFilm, 960}, {PlainPallet, 960}}},
        {Key::Wine,
         "Víno po šesti",
         "dovoz",
         {{WineBottle},
          {Cork},
          {PaperLabel, 1, 2 * One},
          {Carton400, 6, One, 0, 0, Type::Group, Origin::Imported},
          {StretchFilm, 480},
          {EurPallet, 480}}},
        {Key::Shampoo,
         "Šampon po dvanácti",
         nullptr,
         {{ShampooBottle},
          {BottleCap},
          {PaperLabel, 1, 2 * One},
          {PrintedCarton, 12},
          {AdhesiveTape, 12, 3500},
          {Carton600, 48, One, 48, 479},
          {PlainPallet, 480, One, 480, 959},
          {EurPallet, 960}}},
        {Key::WashingGel,
         "Prací gel po osmi",
         nullptr,
         {{GelBottle}, {BottleCap}, {PaperLabel}, {PrintedCarton, 8}, {StretchFilm, 384}, {EurPallet, 384}}},
        {Key::Cleaner,
         "Čistič s rozprašovačem",
         nullptr,
         {{CleanerBottle},
          {Trigger},
          {PaperLabel, 1, 2 * One},
          {Carton400, 12},
          {PpStrap, 432, 2 * One},
          {PlainPallet, 432}}},
        {Key::WashingPowder,
         "Prací prášek 5 kg",
         nullptr,
         {{PowderBag},
          {Carton400, 4, One, 0, 0, Type::Group},
          {StretchFilm, 160},
          {PetStrap, 160, 2 * One},
          {PlainPallet, 160}}},
        {Key::Spray,
         "Sprej v hliníkové nádobce",
         nullptr,
         {{AluminiumSpray}, {BottleCap, 1, 2 * One}, {ShrinkSix, 6}, {Carton300, 12}, {EurPallet, 2304}}},
        {Key::FoodCans,
         "Konzervy po 24",
         nullptr,
         {{FoodCan}, {PaperLabel}, {CanTray, 24}, {ShrinkSix, 24, One / 2}, {StretchFilm, 1920}, {EurPallet, 1920}}},
        {Key::DrinkCartons,
         "Nápojové kartony po dvanácti",
         nullptr,
         {{DrinkCarton}, {BottleCap}, {CanTray, 12}, {ShrinkSix, 12}, {EurPallet, 720}}},
        {Key::Cups,
         "Kelímky po dvaceti",
         nullptr,
         {{PsCup}, {PaperBox, 20, One, 0, 0, Type::Group}, {Blister, 20}, {BreadCrate, 200}}},
        {Key::DryFood,
         "Suché potraviny v sáčku",
         nullptr,
         {{PpBag}, {Carton300, 20}, {AdhesiveTape, 20, 2500}, {EurPallet, 800}}},
        {Key::Paint,
         "Barva v plechovce 6 l",
         nullptr,
         {{PaintCan}, {PaperLabel, 1, 2 * One}, {FoamFitting, 4}, {PetStrap, 60, 2 * One}, {PlainPallet, 60}}},
    };
    return composites;
}

} // namespace

const SampleComposite& CompositeOf(CompositeKey key) {
    return Composites()[static_cast<std::size_t>(key)];
}

void AddSampleComposites(CDataStore& store, const CCoverIds& covers) {
    const RecordsetPtr composites = store.Table("CompCover");
    const RecordsetPtr items = store.Table("CompCover_Item");
    for (const SampleComposite& composite : Composites()) {
        composites->AddNew();
        composites->put_Collect("ccover_name", QString::fromUtf8(composite.name));
        composites->put_Collect("ccover_note", QString::fromUtf8(composite.note));
        composites->Update();
        for (const PackRow& row : composite.rows) {
            items->AddNew();
            items->put_Collect("ccover_id", composites->get_Collect("ccover_id"));
            PutPackRow(*items, row, covers);
            items->Update();
        }
    }
}

void PutPackRow(CRecordset& record, const PackRow& row, const CCoverIds& covers) {
    const SampleCover& cover = CoverOf(row.cover);
    record.put_Collect("cover_id", covers[row.cover]);
    record.put_Collect("cp_qtycover", Currency::FromCount(row.pieces));
    record.put_Collect("cp_qtyprod", Currency::FromWhole(row.products));
    record.put_Collect("cp_usealways", row.from == 0 && row.to == 0);
    record.put_Collect("cp_usefrom", Currency::FromWhole(row.from));
    record.put_Collect("cp_useto", Currency::FromWhole(row.to));
    record.put_Collect("cover_type", row.type >= 0 ? row.type : cover.type);
    record.put_Collect("cover_org", row.origin >= 0 ? row.origin : cover.origin);
    record.put_Collect("cover_pay", row.payment >= 0 ? row.payment : cover.payment);
}
