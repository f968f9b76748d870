#include "core/rules/Propagation.h"

#include "core/base/AppDir.h"
#include "core/base/Profile.h"
#include "core/base/SqlText.h"
#include "core/rules/records/CoverTerms.h"
#include "core/store/DataStore.h"

namespace {

constexpr const char* Section = "Moznosti";

struct OptionKey {
    const char* key;
    std::int32_t PropagationOptions::*option;
};

constexpr OptionKey Keys[] = {
    {"Zmenu obalu promitnout do slozenych obalu", &PropagationOptions::coversToComposites},
    {"Zmenu obalu promitnout v balenich", &PropagationOptions::coversToPackaging},
    {"Zmenu obalu promitnout do vydeju", &PropagationOptions::coversToIssues},
    {"Zmenu baleni promitnout do vydeju", &PropagationOptions::packagingToIssues},
};

} // namespace

Door<PropagationOptions>& Options() {
    static Door<PropagationOptions> door;
    return door;
}

PropagationOptions ReadPropagationOptions() {
    PropagationOptions options;
    CProfile profile(SettingsPath());
    for (const OptionKey& entry : Keys)
        options.*entry.option = profile.GetInt(QString::fromLatin1(Section), QString::fromLatin1(entry.key), 1);
    return options;
}

std::error_code WritePropagationOptions(const PropagationOptions& options) {
    CProfile::Entries entries;
    for (const OptionKey& entry : Keys)
        entries.push_back({QString::fromLatin1(entry.key), QString::number(options.*entry.option)});
    return CProfile(SettingsPath()).Write(QString::fromLatin1(Section), entries);
}

void PropagateCover(CDataStore& store, const PropagationOptions& options, std::int32_t coverId,
                    const CoverTerms& terms) {
    const auto update = [&](const char* table) {
        store.ExecuteSQL(SqlText("UPDATE %s SET cover_type=%li, cover_org=%li, cover_pay=%li WHERE cover_id=%li", table,
                                 terms.type, terms.origin, terms.payment, coverId));
    };
    if (options.coversToComposites != 0)
        update("CompCover_Item");
    if (options.coversToPackaging != 0)
        update("Prod_Cover");
    if (options.coversToIssues != 0)
        update("Move_Cover");
}
