// korval-htmlpdf [--book] PAGE.html OUT.pdf: prints a page of the documentation to a PDF at build
// time, so the PDF and the page it comes from always say the same. With --book the page is a
// table of contents: the pages it lists in its own folder follow it, each from a new sheet, in
// the order they are listed. Runs on the offscreen platform.
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImageReader>
#include <QPageLayout>
#include <QPdfWriter>
#include <QRegularExpression>
#include <QStringList>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextFragment>
#include <QTextImageFormat>
#include <QUrl>

#include <cstdio>

namespace {

// The width of the text on an A4 sheet with the printing's margins, in the units of the layout.
constexpr double TextWidth = 640;

// Drawings are drawn at four times their size, so lines stay sharp on paper; a picture wider than
// the text is shown at the text's width. Returns the first picture that cannot be drawn; empty
// when every one can.
QString loadImages(QTextDocument& doc, const QDir& folder) {
    constexpr int Sharpness = 4;
    for (auto block = doc.begin(); block.isValid(); block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const auto format = it.fragment().charFormat();
            if (!format.isImageFormat()) {
                continue;
            }
            const auto picture = format.toImageFormat();
            const auto name = picture.name();
            QImageReader reader(folder.filePath(name));
            // Only a drawing gains by it: a screen's picture has no more detail to give.
            const bool drawing = reader.format() == "svg";
            if (drawing) {
                reader.setScaledSize(reader.size() * Sharpness);
            }
            auto image = reader.read();
            if (image.isNull()) {
                return name;
            }
            if (drawing) {
                image.setDevicePixelRatio(Sharpness);
            }
            // Narrowed by its density, so that the paper keeps every pixel of it.
            const double tooWide = image.width() / image.devicePixelRatio() / TextWidth;
            if (!picture.hasProperty(QTextFormat::ImageWidth) && tooWide > 1) {
                image.setDevicePixelRatio(image.devicePixelRatio() * tooWide);
            }
            doc.addResource(QTextDocument::ImageResource, QUrl(name), image);
        }
    }
    return {};
}

QString readPage(const QString& path) {
    QFile in(path);
    return in.open(QIODevice::ReadOnly) ? QString::fromUtf8(in.readAll()) : QString();
}

// The page as the text engine lays it out: a figure becomes a plain block with its caption in
// italics, and the style sheet the page links is written into it. The engine takes a line's
// height in proportion to the tallest thing on it: a picture's line would get the text's spacing
// under it, times its own height.
QString printable(QString html, const QDir& folder) {
    html.replace("<figure>", "<div style=\"line-height: 100%\">")
        .replace("</figure>", "</div>")
        .replace("<figcaption>", "<p><i>")
        .replace("</figcaption>", "</i></p>");
    static const QRegularExpression sheet(R"re(<link rel="stylesheet" href="([^"]+)">)re");
    if (const auto link = sheet.match(html); link.hasMatch()) {
        html.replace(link.captured(0),
                     "<style>" + readPage(folder.filePath(link.captured(1))) + "</style>");
    }
    return html;
}

// The contents page with every page it lists in its folder behind it, each from a new sheet,
// without their links back to the contents. Empty when a listed page cannot be read.
QString book(const QFileInfo& contents, const QString& html) {
    static const QRegularExpression body("<body[^>]*>(.*)</body>",
                                         QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression listed(R"re(href="([^"/#:]+\.html)")re");
    static const QRegularExpression back("<nav[^>]*>.*?</nav>",
                                         QRegularExpression::DotMatchesEverythingOption);
    QStringList pages;
    for (auto it = listed.globalMatch(html); it.hasNext();) {
        const auto page = it.next().captured(1).replace("%20", " ");
        if (!pages.contains(page)) {
            pages << page;
        }
    }
    QString sheets;
    for (const auto& page : pages) {
        const auto text = readPage(contents.dir().filePath(page));
        const auto inside = body.match(text);
        if (!inside.hasMatch()) {
            std::fprintf(stderr, "korval-htmlpdf: cannot read the listed page %s\n",
                         qPrintable(page));
            return {};
        }
        sheets += "<div style=\"page-break-before: always\">" + inside.captured(1).remove(back) +
                  "</div>";
    }
    auto whole = html;
    return whole.replace("</body>", sheets + "</body>");
}

} // namespace

int main(int argc, char** argv) {
    QGuiApplication app(argc, argv);
    const bool isBook = argc == 4 && QString(argv[1]) == "--book";
    if (argc != 3 && !isBook) {
        std::fprintf(stderr, "usage: korval-htmlpdf [--book] PAGE.html OUT.pdf\n");
        return 2;
    }
    const char* pageName = argv[argc - 2];
    const QFileInfo page(QString::fromLocal8Bit(pageName));
    auto html = readPage(page.filePath());
    if (isBook && !html.isEmpty()) {
        html = book(page, html);
    }
    if (html.isEmpty()) {
        std::fprintf(stderr, "korval-htmlpdf: cannot read %s\n", pageName);
        return 1;
    }
    QTextDocument doc;
    doc.setHtml(printable(html, page.dir()));
    if (const auto name = loadImages(doc, page.dir()); !name.isEmpty()) {
        std::fprintf(stderr, "korval-htmlpdf: %s: cannot draw the picture %s\n", pageName,
                     qPrintable(name));
        return 1;
    }
    const QString out = QString::fromLocal8Bit(argv[argc - 1]);
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
        std::fprintf(stderr, "korval-htmlpdf: cannot write %s\n", argv[argc - 1]);
        return 1;
    }
    return 0;
}
