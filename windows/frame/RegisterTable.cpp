#include "windows/frame/RegisterTable.h"

#include "windows/registers/composites/ViewCompCover.h"
#include "windows/registers/covers/ViewCover.h"
#include "windows/registers/issues/ViewMove.h"
#include "windows/registers/products/ViewProd.h"

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
