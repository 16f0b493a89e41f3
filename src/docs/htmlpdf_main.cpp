// korval-htmlpdf PAGE.html OUT.pdf: prints a page of the documentation to a PDF at build time,
// so the PDF and the page it comes from always say the same. Runs on the offscreen platform.
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImageReader>
#include <QPageLayout>
#include <QPdfWriter>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextFragment>
#include <QTextImageFormat>
#include <QUrl>

#include <cstdio>

namespace {

// Pictures are drawn at four times their size, so lines stay sharp on paper. Returns the first
// picture that cannot be drawn; empty when every one can.
QString loadImages(QTextDocument& doc, const QDir& folder) {
    constexpr int Sharpness = 4;
    for (auto block = doc.begin(); block.isValid(); block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const auto format = it.fragment().charFormat();
            if (!format.isImageFormat()) {
                continue;
            }
            const auto name = format.toImageFormat().name();
            QImageReader reader(folder.filePath(name));
            if (reader.supportsOption(QImageIOHandler::ScaledSize)) {
                reader.setScaledSize(reader.size() * Sharpness);
            }
            auto image = reader.read();
            if (image.isNull()) {
                return name;
            }
            if (reader.supportsOption(QImageIOHandler::ScaledSize)) {
                image.setDevicePixelRatio(Sharpness);
            }
            doc.addResource(QTextDocument::ImageResource, QUrl(name), image);
        }
    }
    return {};
}

} // namespace

int main(int argc, char** argv) {
    QGuiApplication app(argc, argv);
    if (argc != 3) {
        std::fprintf(stderr, "usage: korval-htmlpdf PAGE.html OUT.pdf\n");
        return 2;
    }
    const QFileInfo page(QString::fromLocal8Bit(argv[1]));
    QFile in(page.filePath());
    if (!in.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "korval-htmlpdf: cannot read %s\n", argv[1]);
        return 1;
    }
    QTextDocument doc;
    doc.setHtml(QString::fromUtf8(in.readAll()));
    if (const auto name = loadImages(doc, page.dir()); !name.isEmpty()) {
        std::fprintf(stderr, "korval-htmlpdf: %s: cannot draw the picture %s\n", argv[1],
                     qPrintable(name));
        return 1;
    }
    const QString out = QString::fromLocal8Bit(argv[2]);
    {
        QPdfWriter pdf(out);
        pdf.setTitle(doc.metaInformation(QTextDocument::DocumentTitle));
        pdf.setCreator("KORVAL");
        // No margins of the writer's own: printing adds 2 cm around the text and page numbers.
        pdf.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait,
                                      QMarginsF(0, 0, 0, 0), QPageLayout::Millimeter));
        doc.print(&pdf);
    }
    if (QFileInfo(out).size() == 0) {
        std::fprintf(stderr, "korval-htmlpdf: cannot write %s\n", argv[2]);
        return 1;
    }
    return 0;
}
