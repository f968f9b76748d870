#include "registers/RegisterView.h"

CRegisterView::CRegisterView(CDataStore& store, IBroadcaster& broadcaster, QWidget* parent)
    : QWidget(parent), m_store(store), m_broadcaster(broadcaster) {}
