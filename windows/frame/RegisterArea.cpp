#include "windows/frame/RegisterArea.h"

#include "windows/widgets/Guarded.h"

#include <algorithm>

CRegisterArea::CRegisterArea(CDataStore& store, std::span<const RegisterEntry> registers, QWidget* parent)
    : QStackedWidget(parent), m_store(store), m_registers(registers) {
    setObjectName(QStringLiteral("registerArea"));
    setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
}

bool CRegisterArea::Knows(Command command) const {
    return std::any_of(m_registers.begin(), m_registers.end(),
                       [=](const RegisterEntry& entry) { return entry.show == command; });
}

CRegisterView* CRegisterArea::ActiveView() const {
    return static_cast<CRegisterView*>(currentWidget());
}

CRegisterView* CRegisterArea::Find(Command command) const {
    const auto found = std::find_if(m_created.begin(), m_created.end(),
                                    [=](const CreatedView& created) { return created.show == command; });
    return found == m_created.end() ? nullptr : found->view;
}

CRegisterView* CRegisterArea::Create(Command command) {
    const auto entry = std::find_if(m_registers.begin(), m_registers.end(),
                                    [=](const RegisterEntry& each) { return each.show == command; });
    CRegisterView* const view = entry->create(m_store, *this, this);
    m_created.push_back({command, view});
    addWidget(view);
    Guarded([=] { view->InitialUpdate(); });
    return view;
}

void CRegisterArea::Show(Command command) {
    if (!Knows(command) || (ActiveView() != nullptr && m_active == command))
        return;
    CRegisterView* view = Find(command);
    if (view == nullptr)
        view = Create(command);
    m_active = command;
    setCurrentWidget(view);
    view->setFocus();
    emit Switched();
}

void CRegisterArea::Broadcast(ViewMessage message, CRegisterView* except) {
    // A view may be created while another one answers.
    const std::vector<CreatedView> created = m_created;
    for (const CreatedView& each : created)
        if (each.view != except)
            Guarded([&] { each.view->Receive(message); });
}
