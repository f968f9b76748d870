#include "app/HelpPages.h"

#include <QWidget>

#include <algorithm>

namespace {

using enum HelpContext;

constexpr HelpPage Pages[] = {
    {Contents, "index.html"},
    {Cover, "obaly.html#detail"},
    {CoverFilter, "obaly.html#filtr"},
    {Discard, "vyrazene-obaly.html"},
    {CompositeCover, "slozene-obaly.html#detail"},
    {CompositeFilter, "slozene-obaly.html#filtr"},
    {Product, "vyrobky.html#detail"},
    {ProductFilter, "vyrobky.html#filtr"},
    {ValidityDate, "baleni.html#platnost"},
    {CoverChoice, "baleni.html#vyber"},
    {PackagingRow, "baleni.html#udaje"},
    {BulkAssignment, "hromadne-prirazeni.html"},
    {Issue, "vydeje.html#detail"},
    {IssueFilter, "vydeje.html#filtr"},
    {IssueItem, "vydeje.html#polozky"},
    {IssuedCover, "obaly-ve-vydeji.html#rucne"},
    {Report, "vykaz.html#udaje"},
    {MoneyImport, "import-money.html"},
    {WakImport, "import-wak.html"},
    {ExistingRecords, "import-money.html#existujici"},
    {FindReplace, "najit-a-nahradit.html"},
    {Options, "moznosti.html"},
    {Backup, "zalohovani.html"},
    {Messages, "potize.html"},
};

struct HelpedWindow {
    const char* objectName;
    HelpContext context;
};

constexpr HelpedWindow Windows[] = {
    {"aboutDlg", Contents},
    {"optionsDlg", Options},
    {"backupDlg", Backup},
    {"reportDlg", Report},
    {"messageBox", Messages},
    {"CoverDlg", Cover},
    {"CoverFilterDlg", CoverFilter},
    {"PageDisc", Discard},
    {"CompCoverDlg", CompositeCover},
    {"CompCoverFilterDlg", CompositeFilter},
    {"ProdDlg", Product},
    {"ProdFilterDlg", ProductFilter},
    {"ProdDateDlg", ValidityDate},
    {"PageCover", CoverChoice},
    {"PageCoverProd", PackagingRow},
    {"PageDateRange", BulkAssignment},
    {"MoveDlg", Issue},
    {"MoveFilterDlg", IssueFilter},
    {"PageProd", IssueItem},
    {"PageQty", IssueItem},
    {"PageCoverMove", IssuedCover},
    {"pageImpS3", MoneyImport},
    {"pageImpS3Param", MoneyImport},
    {"pageImpWAK", WakImport},
    {"pageImpWAKParam", WakImport},
    {"askOverwriteDlg", ExistingRecords},
    {"findReplaceDlg", FindReplace},
};

} // namespace

std::span<const HelpPage> HelpPages() {
    return Pages;
}

const char* HelpAddress(HelpContext context) {
    return std::find_if(std::begin(Pages), std::end(Pages),
                        [&](const HelpPage& page) { return page.context == context; })
        ->address;
}

std::optional<HelpContext> HelpContextOf(const QWidget& control) {
    for (const QWidget* widget = &control; widget != nullptr; widget = widget->parentWidget()) {
        for (const HelpedWindow& window : Windows)
            if (widget->objectName() == QLatin1String(window.objectName))
                return window.context;
        if (widget->isWindow())
            break;
    }
    return std::nullopt;
}
