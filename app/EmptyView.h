#pragma once

#include "registers/RegisterView.h"

/// The place of a register that the program does not have yet.
class CEmptyView : public CRegisterView {
    Q_OBJECT

public:
    using CRegisterView::CRegisterView;
    void InitialUpdate() override {}
    bool Handles(Command) const override { return false; }
    void Run(Command) override {}
    void Receive(ViewMessage) override {}
};
