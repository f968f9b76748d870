#include "core/report/office/OfficeWorkbook.h"

#include "core/report/office/OfficeWorksheet.h"

#include <com/sun/star/beans/PropertyValue.hpp>
#include <com/sun/star/container/NoSuchElementException.hpp>
#include <com/sun/star/document/MacroExecMode.hpp>
#include <com/sun/star/document/UpdateDocMode.hpp>
#include <com/sun/star/frame/XComponentLoader.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/frame/XStorable.hpp>
#include <com/sun/star/sheet/XCalculatable.hpp>
#include <com/sun/star/util/XCloseable.hpp>
#include <com/sun/star/util/XProtectable.hpp>

#include <QFile>
#include <QSaveFile>
#include <QTemporaryFile>
#include <QUrl>

#include <utility>

namespace {

constexpr char compoundFileMagic[] = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1";

css::beans::PropertyValue Property(const char* name, const css::uno::Any& value) {
    css::beans::PropertyValue property;
    property.Name = OUString::createFromAscii(name);
    property.Value = value;
    return property;
}

css::uno::Sequence<css::beans::PropertyValue> Arguments(std::initializer_list<css::beans::PropertyValue> properties) {
    return {properties.begin(), static_cast<sal_Int32>(properties.size())};
}

/// Named, because the content under a template's name tells nothing to the office's own detection.
css::beans::PropertyValue Excel97() {
    return Property("FilterName", css::uno::Any(OUString("MS Excel 97")));
}

OUString FileUrl(const QString& path) {
    return ToOffice(QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded));
}

[[noreturn]] void RaiseFile(const char* operation, const QString& path, const QString& failure,
                            const QFileDevice& file) {
    const auto code = file.error() == QFileDevice::ResourceError ? ResultCode::DiskFull : ResultCode::Fail;
    throw ComError(operation, path.toStdString(), code, failure + "\n" + file.errorString());
}

} // namespace

COfficeWorkbook::COfficeWorkbook(std::shared_ptr<COfficeConnection> connection, const QString& path)
    : m_connection(std::move(connection)), m_path(path) {
    const QString failure = QString("Sešit \"%1\" nelze otevřít.").arg(path);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        RaiseFile("Open", path, failure, file);
    const QByteArray content = file.readAll();
    const auto document = m_connection->Call("Open", path, failure, [&] {
        // The office would make an empty workbook of an empty file; anything else that it cannot read it answers with
        // nothing.
        if (content.isEmpty())
            return css::uno::Reference<css::lang::XComponent>();
        const QString copy = WorkingFile(content);
        const css::uno::Reference<css::frame::XComponentLoader> loader(m_connection->Desktop(),
                                                                       css::uno::UNO_QUERY_THROW);
        return loader->loadComponentFromURL(
            FileUrl(copy), "_blank", 0,
            Arguments({Excel97(), Property("Hidden", css::uno::Any(true)),
                       Property("MacroExecutionMode", css::uno::Any(css::document::MacroExecMode::NEVER_EXECUTE)),
                       Property("UpdateDocMode", css::uno::Any(css::document::UpdateDocMode::NO_UPDATE))}));
    });
    if (!document.is())
        throw ComError("Open", path.toStdString(), ResultCode::Corrupt,
                       failure + QStringLiteral("\nSoubor není sešit, nebo je poškozený."));
    m_connection->Call("Open", path, failure, [&] {
        m_document.set(document, css::uno::UNO_QUERY_THROW);
        const css::uno::Reference<css::frame::XModel> model(document, css::uno::UNO_QUERY_THROW);
        m_view.set(model->getCurrentController(), css::uno::UNO_QUERY);
    });
}

std::unique_ptr<IWorksheet> COfficeWorkbook::Worksheet(const QString& name) {
    const QString failure = QString("Sešit neobsahuje list \"%1\".").arg(name);
    return m_connection->Call("Worksheet", name, failure, [&]() -> std::unique_ptr<IWorksheet> {
        RequireOpen("Worksheet");
        css::uno::Reference<css::sheet::XSpreadsheet> sheet;
        try {
            m_document->getSheets()->getByName(ToOffice(name)) >>= sheet;
        } catch (const css::container::NoSuchElementException&) {
            throw ComError("Worksheet", name.toStdString(), NoSuchSheet, failure);
        }
        if (!sheet.is())
            return nullptr;
        const css::uno::Reference<css::util::XProtectable> protection(sheet, css::uno::UNO_QUERY_THROW);
        return std::make_unique<COfficeWorksheet>(m_connection, sheet, m_view, protection->isProtected());
    });
}

void COfficeWorkbook::Save() {
    const QString failure = QString("Sešit \"%1\" nelze uložit.").arg(m_path);
    const QString stored = m_connection->Call("Save", m_path, failure, [&] {
        RequireOpen("Save");
        QString file = WorkingFile({});
        css::uno::Reference<css::sheet::XCalculatable>(m_document, css::uno::UNO_QUERY_THROW)->calculateAll();
        css::uno::Reference<css::frame::XStorable>(m_document, css::uno::UNO_QUERY_THROW)
            ->storeToURL(FileUrl(file), Arguments({Excel97()}));
        return file;
    });
    QFile source(stored);
    if (!source.open(QIODevice::ReadOnly))
        RaiseFile("Save", m_path, failure, source);
    const QByteArray content = source.readAll();
    if (!content.startsWith(compoundFileMagic))
        throw ComError("Save", m_path.toStdString(), ResultCode::Fail, failure);
    QSaveFile target(m_path);
    if (!target.open(QIODevice::WriteOnly) || target.write(content) != content.size() || !target.commit())
        RaiseFile("Save", m_path, failure, target);
    source.remove();
}

void COfficeWorkbook::Close() {
    if (!m_document.is())
        return;
    m_connection->Call("Close", m_path, QString("Sešit \"%1\" nelze zavřít.").arg(m_path), [&] {
        css::uno::Reference<css::util::XCloseable>(m_document, css::uno::UNO_QUERY_THROW)->close(true);
    });
    m_view.clear();
    m_document.clear();
}

QString COfficeWorkbook::WorkingFile(const QByteArray& content) const {
    QTemporaryFile file(m_connection->RunFolder() + "/XXXXXX.xls");
    file.setAutoRemove(false);
    if (!file.open() || file.write(content) != content.size() || !file.flush())
        RaiseFile("WorkingFile", m_path, QStringLiteral("Nelze vytvořit pracovní soubor."), file);
    return file.fileName();
}

void COfficeWorkbook::RequireOpen(const char* operation) const {
    if (!m_document.is())
        throw ComError(operation, m_path.toStdString(), ResultCode::ObjectClosed,
                       QString("Sešit \"%1\" je zavřený.").arg(m_path));
}
