#include "windows/frame/help/HelpPages.h"

#include <QStackedWidget>

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

std::optional<HelpContext> ContextOfName(const QWidget& widget) {
    for (const HelpedWindow& window : Windows)
        if (widget.objectName() == QLatin1String(window.objectName))
            return window.context;
    return std::nullopt;
}

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
    const QWidget* widget = &control;
    for (; !widget->isWindow(); widget = widget->parentWidget())
        if (const auto context = ContextOfName(*widget))
            return context;
    // On the buttons of a sheet the page shown counts.
    const auto* const pages = widget->findChild<QStackedWidget*>(QString(), Qt::FindDirectChildrenOnly);
    const QWidget* const page = pages != nullptr ? pages->currentWidget() : nullptr;
    return ContextOfName(page != nullptr ? *page : *widget);
}
