#pragma once

#include "core/rules/records/CoverTerms.h"
#include "windows/widgets/WizardSheet.h"

#include <functional>
#include <memory>

class CDataStore;
class RecordList;
namespace Ui {
class PageCover;
}

/// A chosen cover with the terms that a use of it starts from.
struct CoverChoice {
    std::int32_t id = -1;
    CoverTerms terms;
};

/// "Vyberte obal": a cover is chosen with Next; a composite one, where they are offered, ends the sheet. The tab last
/// shown comes up again the next time, for the rest of the program's run.
class CPageCover : public CWizardPage {
    Q_OBJECT

public:
    enum class Offer { SimpleAndComposite, SimpleOnly };

    CPageCover(CDataStore& store, Offer offer);
    ~CPageCover() override;

    /// The page that follows, told of the cover on each Next.
    void SetFollower(std::function<void(const CoverChoice&)> follower) { m_follower = std::move(follower); }
    std::int32_t ChosenId() const { return m_chosenId; }
    bool IsComposite() const { return m_isComposite; }

    void OnSetActive() override;
    bool OnWizardNext() override;
    bool OnWizardFinish() override;
    QString Chosen() const override;

private:
    RecordList& CurrentList() const;
    bool OnCompositeTab() const;
    void OnTabShown();
    bool Choose();

    CDataStore& m_store;
    std::unique_ptr<Ui::PageCover> m_ui;
    RecordList* m_simple;
    RecordList* m_composite;
    bool m_simpleFilled = false;
    bool m_compositeFilled = false;
    std::function<void(const CoverChoice&)> m_follower;
    std::int32_t m_chosenId = -1;
    bool m_isComposite = false;
};
