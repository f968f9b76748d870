#include "windows/registers/RegisterView.h"

CRegisterView::CRegisterView(CDataStore& store, IBroadcaster& broadcaster, QWidget* parent)
    : CFindOwner(parent), m_store(store), m_broadcaster(broadcaster) {}
