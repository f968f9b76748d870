#include "ctl/sample/SampleCompany.h"

#include "core/store/CommitGroup.h"
#include "ctl/sample/SampleComposites.h"
#include "ctl/sample/SampleIssues.h"

void FillSampleCompany(CDataStore& store) {
    CSequence sequence(20090101);
    CCommitGroup group(store);
    const CCoverIds covers = AddSampleCovers(store);
    AddSampleComposites(store, covers);
    const SampleProducts products = AddSampleProducts(store, covers, sequence);
    AddSampleIssues(store, group, products, sequence);
    AddSampleDiscards(store, covers, sequence);
    // Last, so that what was issued has the packaging of its day.
    DeleteOldCovers(store, covers);
    DeleteOldProducts(store, products);
    group.RecordDone();
    group.Finish();
}

CompanyData SampleCompanyData() {
    CompanyData company;
    company.contactPerson = QStringLiteral("Ing. Hana Kudrnáčová");
    company.taxNumber = QStringLiteral("CZ27154390");
    company.companyNumber = QStringLiteral("27154390");
    company.fax = QStringLiteral("481 000 119");
    company.telephone = QStringLiteral("481 000 118");
    company.name = QStringLiteral("Kudrnáč a synové, drogerie a potraviny s.r.o.");
    company.mail = QStringLiteral("kudrnacova@kudrnac-a-synove.example");
    company.office = QStringLiteral("Nad Splavem 418, 511 01 Turnov");
    company.schemeId = QStringLiteral("EK-F00000418");
    company.invoiceMail = QStringLiteral("faktury@kudrnac-a-synove.example");
    return company;
}
