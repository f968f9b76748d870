#pragma once

#include "core/rules/records/CompositeValues.h"

#include <QDialog>

#include <cstdint>
#include <memory>

class CDataStore;
class RecordList;
enum class Command : int;
namespace Ui {
class CompCoverDlg;
}

/// "Detail složeného obalu". Works on a scratch copy of the composite's items; storing it is the caller's.
class CCompCoverDlg : public QDialog {
    Q_OBJECT

public:
    static constexpr std::int32_t NewComposite = -1;

    /// Makes the scratch copy; an error while copying is shown, and the dialog opens with what was copied.
    CCompCoverDlg(CDataStore& store, std::int32_t compositeId, CompositeValues values, QWidget* parent);
    ~CCompCoverDlg() override;

    /// After OK.
    const CompositeValues& Values() const { return m_values; }

    void accept() override;

private:
    void AddButtons();
    void AddShortcuts();
    void Fill(std::int32_t id);
    void Run(Command command);
    void AddItem();
    void EditItem();
    void DeleteItem();
    void ShowMenu(const QPoint& screen, bool onRow);
    /// −1 after the warning that nothing is selected.
    int SelectedItem();

    CDataStore& m_store;
    std::unique_ptr<Ui::CompCoverDlg> m_ui;
    RecordList* m_items;
    CompositeValues m_values;
};
