#include "core/rules/ToBeDeleted.h"

#include "core/base/CzechCount.h"
#include "core/base/SqlText.h"
#include "core/store/DataStore.h"

#include <QStringList>

namespace {

/// Of more records only so many are named.
constexpr std::size_t NamedRecords = 3;

constexpr CountedNoun Covers{"obal", "obaly", "obalů"};
constexpr CountedNoun Composites{"složený obal", "složené obaly", "složených obalů"};
constexpr CountedNoun Products{"produkt", "produkty", "produktů"};
constexpr CountedNoun Issues{"výdej", "výdeje", "výdejů"};
constexpr CountedNoun Items{"položka", "položky", "položek"};
constexpr CountedNoun Definitions{"definice balení", "definice balení", "definic balení"};
constexpr CountedNoun PackagingRows{"řádek balení", "řádky balení", "řádků balení"};
constexpr CountedNoun InComposites{"složeném obalu", "složených obalech", "složených obalech"};
constexpr CountedNoun InPackaging{"balení", "baleních", "baleních"};
constexpr CountedNoun InIssues{"výdeji", "výdejích", "výdejích"};

std::int64_t RowsOf(CDataStore& store, const char* select, std::int32_t id) {
    return store.Query(SqlText(select, id))->get_RecordCount();
}

/// Empty when there is none.
void AppendCount(QStringList& parts, std::int64_t count, const CountedNoun& noun) {
    if (count > 0)
        parts.append(Counted(count, noun));
}

/// "použit v 9 složených obalech, 3 výdejích" of the counts that are not nought.
QString Uses(const char* participle, const std::vector<std::pair<std::int64_t, CountedNoun>>& uses) {
    QStringList parts;
    std::int64_t first = 0;
    for (const auto& [count, noun] : uses) {
        if (parts.isEmpty())
            first = count;
        AppendCount(parts, count, noun);
    }
    if (parts.isEmpty())
        return {};
    return QStringLiteral("%1 %2%3%4")
        .arg(QString::fromUtf8(participle), InBefore(first), QChar(QChar::Nbsp), parts.join(QStringLiteral(", ")));
}

/// "3 obaly: Bedna, Fólie a další".
QString Named(CDataStore& store, const std::vector<std::int32_t>& ids, const CountedNoun& noun, const char* select) {
    QStringList names;
    for (std::size_t i = 0; i < ids.size() && i < NamedRecords; ++i) {
        const RecordsetPtr record = store.Query(SqlText(select, ids[i]));
        if (!record->get_EOF())
            names.append(FormatVariant(record->get_Collect("name")));
    }
    const QString more = ids.size() > NamedRecords ? QStringLiteral(" a další") : QString();
    return Counted(static_cast<std::int64_t>(ids.size()), noun) + QStringLiteral(": ") +
           names.join(QStringLiteral(", ")) + more;
}

QString WithUse(const QString& named, const QString& use) {
    return use.isEmpty() ? named : named + QStringLiteral(", ") + use;
}

/// The texts of the first record's fields, set into "%1", "%2" of the pattern; empty when the record is gone.
QString Filled(CDataStore& store, const char* select, std::int32_t id, const char* pattern,
               const std::vector<const char*>& fields) {
    const RecordsetPtr record = store.Query(SqlText(select, id));
    if (record->get_EOF())
        return {};
    QString text = QString::fromUtf8(pattern);
    for (std::size_t i = 0; i < fields.size(); ++i)
        text.replace(QStringLiteral("%%1").arg(i + 1), FormatVariant(record->get_Collect(fields[i])));
    return text;
}

} // namespace

QString CoversToBeDeleted(CDataStore& store, const std::vector<std::int32_t>& ids) {
    const QString named = Named(store, ids, Covers, "SELECT cover_name AS name FROM Cover WHERE cover_id = %li");
    if (ids.size() != 1)
        return named;
    const auto count = [&](const char* select) { return RowsOf(store, select, ids.front()); };
    return WithUse(
        named,
        Uses("použit",
             {{count("SELECT ccover_id FROM CompCover_Item WHERE cover_id = %li GROUP BY ccover_id"), InComposites},
              {count("SELECT dt_id FROM Prod_Cover WHERE cover_id = %li GROUP BY dt_id"), InPackaging},
              {count("SELECT move_id FROM Move_Cover WHERE cover_id = %li GROUP BY move_id"), InIssues}}));
}

QString CompositesToBeDeleted(CDataStore& store, const std::vector<std::int32_t>& ids) {
    QStringList parts{Named(store, ids, Composites, "SELECT ccover_name AS name FROM CompCover WHERE ccover_id = %li")};
    if (ids.size() == 1)
        AppendCount(parts, RowsOf(store, "SELECT cover_id FROM CompCover_Item WHERE ccover_id = %li", ids.front()),
                    Covers);
    return parts.join(QStringLiteral(", "));
}

QString ProductsToBeDeleted(CDataStore& store, const std::vector<std::int32_t>& ids) {
    const QString named = Named(store, ids, Products, "SELECT prod_name AS name FROM Product WHERE prod_id = %li");
    if (ids.size() != 1)
        return named;
    QStringList parts{named};
    AppendCount(parts, RowsOf(store, "SELECT dt_id FROM Prod_CoverDT WHERE prod_id = %li", ids.front()), Definitions);
    return WithUse(parts.join(QStringLiteral(", ")),
                   Uses("vydán", {{RowsOf(store, "SELECT move_id FROM Move_Prod WHERE prod_id = %li GROUP BY move_id",
                                          ids.front()),
                                   InIssues}}));
}

QString IssuesToBeDeleted(CDataStore& store, const std::vector<std::int32_t>& ids) {
    QStringList parts{Named(store, ids, Issues, "SELECT move_num AS name FROM Move WHERE move_id = %li")};
    if (ids.size() == 1)
        AppendCount(parts, RowsOf(store, "SELECT mvprod_id FROM Move_Prod WHERE move_id = %li", ids.front()), Items);
    return parts.join(QStringLiteral(", "));
}

QString DiscardToBeDeleted(CDataStore& store, std::int32_t discId) {
    return Filled(store,
                  "SELECT cover_name, disc_qty FROM CoverDiscard INNER JOIN Cover ON CoverDiscard.cover_id = "
                  "Cover.cover_id WHERE disc_id = %li",
                  discId, "Obal %1, %2 ks", {"cover_name", "disc_qty"});
}

QString DefinitionToBeDeleted(CDataStore& store, std::int32_t dtId) {
    QStringList parts{Filled(store,
                             "SELECT prod_name FROM Prod_CoverDT INNER JOIN Product ON Prod_CoverDT.prod_id = "
                             "Product.prod_id WHERE dt_id = %li",
                             dtId, "Produkt %1", {"prod_name"})};
    AppendCount(parts, RowsOf(store, "SELECT cp_id FROM Prod_Cover WHERE dt_id = %li", dtId), PackagingRows);
    return parts.join(QStringLiteral(", "));
}

QString PackagingToBeDeleted(CDataStore& store, std::int32_t cpId) {
    return Filled(store,
                  "SELECT prod_name, dt_from FROM Prod_Cover INNER JOIN Prod_CoverDT ON Prod_Cover.dt_id = "
                  "Prod_CoverDT.dt_id INNER JOIN Product ON Prod_CoverDT.prod_id = Product.prod_id WHERE cp_id = %li",
                  cpId, "Produkt %1, balení platné od %2", {"prod_name", "dt_from"});
}

QString ItemToBeDeleted(CDataStore& store, std::int32_t mvprodId) {
    QStringList parts{Filled(store,
                             "SELECT move_num FROM Move_Prod INNER JOIN Move ON Move_Prod.move_id = Move.move_id WHERE "
                             "mvprod_id = %li",
                             mvprodId, "Výdej %1", {"move_num"})};
    AppendCount(parts, RowsOf(store, "SELECT mvcover_id FROM Move_Cover WHERE mvprod_id = %li", mvprodId), Covers);
    return parts.join(QStringLiteral(", "));
}

QString IssuedCoverToBeDeleted(CDataStore& store, std::int32_t mvcoverId) {
    return Filled(store,
                  "SELECT move_num, prod_name FROM Move_Cover INNER JOIN Move_Prod ON Move_Cover.mvprod_id = "
                  "Move_Prod.mvprod_id INNER JOIN Move ON Move_Prod.move_id = Move.move_id INNER JOIN Product ON "
                  "Move_Prod.prod_id = Product.prod_id WHERE mvcover_id = %li",
                  mvcoverId, "Výdej %1, produkt %2", {"move_num", "prod_name"});
}
