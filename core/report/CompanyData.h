#pragma once

#include <QString>

#include <system_error>

/// What the report says about the company: section "Spolecnost" of the settings file.
struct CompanyData {
    QString contactPerson;
    QString taxNumber;
    QString companyNumber;
    QString fax;
    QString telephone;
    QString name;
    QString mail;
    QString office;
    QString schemeId;
    QString invoiceMail;
};

/// Each text is cut to 1000 characters; empty when it is missing.
CompanyData ReadCompanyData();
/// Writes all ten as they stand, changed or not; answers why they could not be written.
[[nodiscard]] std::error_code WriteCompanyData(const CompanyData& company);
