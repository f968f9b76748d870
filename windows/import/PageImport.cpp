#include "windows/import/PageImport.h"

#include <QCheckBox>
#include <QRadioButton>

void BindImportOptions(const ImportControls& controls, ImportOptions& options) {
    controls.products.setChecked(options.products);
    controls.issues.setChecked(options.documents);
    controls.existing[static_cast<std::size_t>(options.existing)]->setChecked(true);
    QObject::connect(&controls.products, &QCheckBox::toggled, [&options](bool on) { options.products = on; });
    QObject::connect(&controls.issues, &QCheckBox::toggled, [&options](bool on) { options.documents = on; });
    for (std::size_t i = 0; i < controls.existing.size(); ++i)
        QObject::connect(controls.existing[i], &QRadioButton::toggled, [&options, i](bool on) {
            if (on)
                options.existing = static_cast<ExistingRecords>(i);
        });
}
