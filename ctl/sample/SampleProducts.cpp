#include "ctl/sample/SampleProducts.h"

#include "core/base/SqlText.h"
#include "core/store/DataStore.h"
#include "ctl/sample/Definitions.h"
#include "ctl/sample/Deletion.h"

#include <QString>

namespace {

constexpr int CurrentCount = 400;
constexpr int DiscontinuedCount = 8;

/// Adds products to four tables, opened once.
class ProductWriter {
public:
    ProductWriter(CDataStore& store, const CCoverIds& covers)
        : m_products(store.Table("Product")), m_definitions(store.Table("Prod_CoverDT")),
          m_rows(store.Table("Prod_Cover")), m_covers(covers) {}

    std::int32_t AddProduct(const QString& name, const QString& catalogue, const char* unit) {
        m_products->AddNew();
        m_products->put_Collect("prod_name", name);
        m_products->put_Collect("prod_katalog", catalogue);
        m_products->put_Collect("prod_unit", QString::fromUtf8(unit));
        m_products->put_Collect("deleted", false);
        m_products->Update();
        return m_products->Long("prod_id");
    }

    void AddDefinition(std::int32_t product, const PackDefinition& definition) {
        m_definitions->AddNew();
        m_definitions->put_Collect("prod_id", product);
        m_definitions->put_Collect("dt_from", definition.from);
        m_definitions->Update();
        for (const PackRow& row : definition.rows) {
            m_rows->AddNew();
            m_rows->put_Collect("dt_id", m_definitions->get_Collect("dt_id"));
            PutPackRow(*m_rows, row, m_covers);
            m_rows->Update();
        }
    }

private:
    RecordsetPtr m_products;
    RecordsetPtr m_definitions;
    RecordsetPtr m_rows;
    const CCoverIds& m_covers;
};

/// Each variant of a family has its own pair of brand and kind.
QString NameOf(const ProductFamily& family, int variant) {
    const auto brand = static_cast<std::size_t>(variant % 4);
    const auto kind = static_cast<std::size_t>((variant / 4 + variant) % 4);
    return MessageText("%s %s %s %s", family.name, Brands[brand], family.kinds[kind], family.size);
}

} // namespace

SampleProducts AddSampleProducts(CDataStore& store, const CCoverIds& covers, CSequence& sequence) {
    ProductWriter writer(store, covers);
    const std::vector<ProductFamily>& families = ProductFamilies();
    const int familyCount = static_cast<int>(families.size());
    SampleProducts products;
    for (int number = 0; number < CurrentCount + DiscontinuedCount; ++number) {
        const bool current = number < CurrentCount;
        const int familyNumber = current ? number % familyCount : (number - CurrentCount) * 5;
        const ProductFamily& family = families[static_cast<std::size_t>(familyNumber)];
        QString name = NameOf(family, current ? number / familyCount : 13);
        if (!current)
            name += QStringLiteral(" (staré)");
        const std::int32_t product = writer.AddProduct(
            name, MessageText("%s-%02i-%03i", family.department, familyNumber + 1, number + 1), family.unit);
        for (const PackDefinition& definition : DrawDefinitions(family, sequence))
            writer.AddDefinition(product, definition);
        const bool byWeight = QString::fromUtf8(family.unit) == QStringLiteral("kg");
        (current ? products.current : products.discontinued).push_back({product, family.carton, byWeight});
    }
    return products;
}

void DeleteOldProducts(CDataStore& store, const SampleProducts& products) {
    std::vector<std::int32_t> keys;
    for (const SampleProduct& product : products.discontinued)
        keys.push_back(product.id);
    DeleteSelection(
        store, keys,
        {"DELETE FROM Prod_Cover WHERE (dt_id IN (SELECT dt_id FROM Prod_CoverDT WHERE (prod_id IN (SELECT id FROM "
         "TmpID))))",
         "DELETE FROM Prod_CoverDT WHERE (prod_id IN (SELECT id FROM TmpID))",
         "UPDATE Product SET deleted = true WHERE (prod_id IN (SELECT id FROM TmpID))"});
}
