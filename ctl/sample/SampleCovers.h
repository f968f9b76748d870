#pragma once

#include <cstdint>
#include <vector>

class CDataStore;

/// The sample company's covers, in the order in which they are entered.
enum class CoverKey : std::uint8_t {
    EurPallet,
    PlainPallet,
    ReturnablePallet,
    ExportCrate,
    Carton300,
    Carton400,
    Carton600,
    PrintedCarton,
    CanTray,
    PaperBox,
    FlourBag,
    PaperLabel,
    IndustrialPaperSack,
    ShrinkSix,
    StretchFilm,
    PlasticBag,
    PowderBag,
    PpStrap,
    PetStrap,
    AdhesiveTape,
    PpBag,
    BigBag,
    BeerCrate,
    BreadCrate,
    GelBottle,
    CleanerBottle,
    Canister10,
    ReturnableCanister,
    CreamTube,
    PetBottle15,
    PetBottle15Light,
    PetBottle05,
    PetBottle2,
    ShampooBottle,
    WaterBarrel,
    BottleCap,
    Trigger,
    PaintBucket,
    PsCup,
    FoamTray,
    FoamFitting,
    ClingFilm,
    Blister,
    DeodorantBody,
    LayeredCanister,
    ReturnableBottle,
    WineBottle,
    LitreBottle,
    PreserveJar,
    PerfumeFlask,
    Demijohn,
    BeerCan,
    AluminiumSpray,
    MilkCan,
    FoodCan,
    SteelSpray,
    TwistLid,
    PaintCan,
    KegBarrel,
    DrinkCarton,
    SmallDrinkCarton,
    CoffeeBag,
    CocoaTin,
    PotatoNet,
    JuteSack,
    Cork,
    Count
};

struct SampleCover {
    CoverKey key;
    const char* name;
    int material;
    /// Tenths of a gram: the ten-thousandths of a kilogram in which the database holds weights.
    std::int64_t weight;
    int type;
    int origin;
    int payment;
    bool reusable = false;
    int stat = 0;
    const char* note = nullptr;
};

const SampleCover& CoverOf(CoverKey key);

/// The keys that the database gave to the covers.
class CCoverIds {
public:
    std::int32_t operator[](CoverKey key) const { return m_ids[static_cast<std::size_t>(key)]; }
    void Add(std::int32_t id) { m_ids.push_back(id); }

private:
    std::vector<std::int32_t> m_ids;
};

/// Raises ComError.
CCoverIds AddSampleCovers(CDataStore& store);
/// The covers that the company has given up since, flagged as the register flags them. Raises ComError.
void DeleteOldCovers(CDataStore& store, const CCoverIds& covers);
