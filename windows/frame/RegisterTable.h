#pragma once

#include "windows/registers/RegisterView.h"

#include <span>

/// A register that the main window can show.
struct RegisterEntry {
    Command show;
    CRegisterView* (*create)(CDataStore& store, IBroadcaster& broadcaster, QWidget* parent);
};

/// The first one is shown at start.
std::span<const RegisterEntry> Registers();
