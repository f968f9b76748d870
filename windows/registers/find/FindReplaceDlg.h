#pragma once

#include "core/rules/FindRequest.h"

#include <QDialog>
#include <QPointer>

#include <memory>
#include <vector>

class CFindOwner;
class QComboBox;
namespace Ui {
class FindReplaceDlg;
}

/// "Najít a nahradit": one window for all registers, beside which the register stays usable. It is made when it is
/// opened first and then kept with its flag and its place; the register that opened it last carries its requests out.
class CFindReplaceDlg : public QDialog {
    Q_OBJECT

public:
    /// Opens the window on the register, with this field's area chosen; "" for none. Of the modes, finding and
    /// replacing are told apart.
    static void Open(CFindOwner& owner, const std::string& field, FindMode mode);

    /// Finds the next match of what the window, though it may be hidden, asked last. False when it has asked nothing of
    /// this register.
    static bool FindAgain(CFindOwner& owner);

    ~CFindReplaceDlg() override;

protected:
    /// The owner comes and goes.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    explicit CFindReplaceDlg(QWidget* window);
    static QPointer<CFindReplaceDlg>& Window();
    void EnableButtons();
    void OpenOn(CFindOwner& owner, const std::string& field, FindMode mode);

    /// The owner's; none when it has gone.
    std::vector<std::string> Fields() const;
    /// The field of the chosen area; "" for one that is not the owner's.
    std::string ChosenField() const;
    void FillAreas(const std::string& field);
    void OnAreaChanged();
    void ShowMode(FindMode mode);
    void OnRequest(FindMode mode);
    /// Makes the request from what the user entered. False after a warning.
    bool TakeRequest(FindMode mode);

    std::unique_ptr<Ui::FindReplaceDlg> m_ui;
    QPointer<CFindOwner> m_owner;
    FindRequest m_request;
    /// The request is the owner's.
    bool m_asked = false;
};
