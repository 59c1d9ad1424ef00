#include "desktop/start/PrintWindow.h"

#include <QFile>
#include <QPageLayout>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QScreen>
#include <QTextDocument>
#include <iostream>

#include "app/frmController.h"
#include "base/Product.h"
#include "desktop/look/TextConvert.h"
#include "desktop/ports/MessageBoxPort.h"
#include "files/FileError.h"
#include "files/WholeFile.h"

namespace clb {

namespace {

// The document itself has margins of two centimetres.
constexpr qreal kMarginMillimetres = 5;

int Fail(const std::string& what, bool asks)
{
    if (asks)
        MessageBoxPort().Show(what, box_style::Critical, product::kTitle);
    else
        std::cerr << what << '\n';
    return 1;
}

bool Read(const QString& file, QTextDocument& document)
{
    QFile in(file);
    if (!in.open(QIODevice::ReadOnly))
        return false;
    document.setHtml(QString::fromUtf8(in.readAll()));
    return true;
}

void Prepare(QPrinter& printer, const QTextDocument& document)
{
    printer.setDocName(document.metaInformation(QTextDocument::DocumentTitle));
    printer.setPageMargins(
        QMarginsF(kMarginMillimetres, kMarginMillimetres, kMarginMillimetres, kMarginMillimetres),
        QPageLayout::Millimeter);
}

int Preview(const QTextDocument& document)
{
    QPrinter printer(QPrinter::HighResolution);
    Prepare(printer, document);
    QPrintPreviewDialog preview(&printer);
    preview.setWindowTitle(QStringLiteral("Print - ") + QLatin1String(product::kTitle));
    preview.resize(preview.screen()->availableSize() * 3 / 4);
    QObject::connect(&preview, &QPrintPreviewDialog::paintRequested,
                     [&document](QPrinter* paper) { document.print(paper); });
    preview.exec();
    return 0;
}

bool WritePdf(const QTextDocument& document, const std::string& pdf)
{
    try {
        WholeFile file(pdf);
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(ToQString(file.Path()));
        Prepare(printer, document);
        document.print(&printer);
        if (printer.printerState() == QPrinter::Error)
            return false;
        file.Keep();
        return true;
    } catch (const FileError&) {
        return false;
    }
}

}  // namespace

int PrintDocument(const std::string& file, const std::string& pdf)
{
    const bool asks = pdf.empty();
    QTextDocument document;
    if (!Read(ToQString(file), document))
        return Fail("Cannot read " + file, asks);
    if (asks)
        return Preview(document);
    return WritePdf(document, pdf) ? 0 : Fail("Cannot write " + pdf, asks);
}

}  // namespace clb
