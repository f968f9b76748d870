#include "app/RegisterTable.h"

#include "registers/ViewCompCover.h"
#include "registers/ViewCover.h"
#include "registers/ViewMove.h"
#include "registers/ViewProd.h"

namespace {

template <class View>
CRegisterView* Create(CDataStore& store, IBroadcaster& broadcaster, QWidget* parent) {
    return new View(store, broadcaster, parent);
}

constexpr RegisterEntry Table[] = {
    {Command::ID_SHOW_COVERS, Create<CViewCover>},
    {Command::ID_SHOW_COMPOSITES, Create<CViewCompCover>},
    {Command::ID_SHOW_PRODUCTS, Create<CViewProd>},
    {Command::ID_SHOW_ISSUES, Create<CViewMove>},
};

} // namespace

std::span<const RegisterEntry> Registers() {
    return Table;
}
