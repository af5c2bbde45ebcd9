#include "ui/help/rtfdocument.h"

#include "ui/help/messages.h"
#include "ui/help/rtfpicture.h"

#include <QApplication>
#include <QFontDatabase>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextTable>

#include <algorithm>
#include <cmath>

namespace kelvo {

namespace {

constexpr int TwipsPerPixel = 15;
constexpr int WidestIndent = 300; ///< pixels; a page in a small window keeps room for text
constexpr int MostCells = 4000;   ///< of all tables; what comes after them reads as lines
constexpr int CellPadding = 4;
constexpr int RoomAfterTable = 10;
constexpr double LeastContrast = 0.3;

qreal Indent(int twips)
{
    return std::clamp(twips / TwipsPerPixel, -WidestIndent, WidestIndent);
}

QColor ColorOf(const rtf::Color &color)
{
    return QColor(color.red, color.green, color.blue);
}

/// How light a colour looks, 0 to 1.
double Lightness(const QColor &color)
{
    return 0.3 * color.redF() + 0.59 * color.greenF() + 0.11 * color.blueF();
}

/// The text's colour as given, or one that can be read where the given one cannot: shading of cells and
/// pages is not shown, so that what was white on blue would be white on white.
QColor Readable(const QColor &color, const QColor &ground)
{
    if (std::abs(Lightness(color) - Lightness(ground)) >= LeastContrast)
        return color;
    return Lightness(ground) > 0.5 ? Qt::black : Qt::white;
}

QTextCharFormat FormatOf(const rtf::TextStyle &style)
{
    static const QString FixedFamily = QFontDatabase::systemFont(QFontDatabase::FixedFont).family();
    QTextCharFormat format;
    format.setFontPointSize(style.halfPoints / 2.0);
    format.setFontWeight(style.bold ? QFont::Bold : QFont::Normal);
    format.setFontItalic(style.italic);
    format.setFontUnderline(style.underlined || style.link);
    format.setFontStrikeOut(style.struckOut);
    if (style.fixedPitch)
        format.setFontFamilies({FixedFamily});
    if (style.script != rtf::Script::Normal)
        format.setVerticalAlignment(style.script == rtf::Script::Super ? QTextCharFormat::AlignSuperScript
                                                                       : QTextCharFormat::AlignSubScript);
    const QColor ground = style.background ? ColorOf(*style.background) : QColor(Qt::white);
    if (style.background)
        format.setBackground(ground);
    const QColor usual = style.link ? Qt::blue : Qt::black;
    if (style.color || style.link || style.background)
        format.setForeground(Readable(style.color ? ColorOf(*style.color) : usual, ground));
    return format;
}

Qt::Alignment AlignmentOf(rtf::Alignment alignment)
{
    switch (alignment) {
    case rtf::Alignment::Center:
        return Qt::AlignHCenter;
    case rtf::Alignment::Right:
        return Qt::AlignRight;
    case rtf::Alignment::Justified:
        return Qt::AlignJustify;
    case rtf::Alignment::Left:
        break;
    }
    return Qt::AlignLeft;
}

QTextBlockFormat FormatOf(const rtf::ParagraphStyle &style)
{
    const qreal left = std::max(0.0, Indent(style.leftIndent));
    const qreal first = std::max(-left, Indent(style.firstIndent));
    QTextBlockFormat format;
    format.setLeftMargin(left);
    format.setTextIndent(first);
    format.setRightMargin(std::max(0.0, Indent(style.rightIndent)));
    format.setTopMargin(std::max(0.0, Indent(style.spaceBefore)));
    format.setBottomMargin(std::max(0.0, Indent(style.spaceAfter)));
    format.setAlignment(AlignmentOf(style.alignment));
    format.setHeadingLevel(std::min(style.headingLevel, 6));

    // The page counts tab stops from where the first line begins. A hanging indent is a stop of its own.
    const qreal start = left + std::min(0.0, first);
    QList<QTextOption::Tab> tabs;
    for (const int stop : style.tabStops) {
        const int pixels = stop / TwipsPerPixel;
        if (pixels > start)
            tabs.append({pixels - start, QTextOption::LeftTab});
    }
    if (first < 0)
        tabs.append({-first, QTextOption::LeftTab});
    std::sort(tabs.begin(), tabs.end(), [](const auto &a, const auto &b) { return a.position < b.position; });
    format.setTabPositions(tabs);
    return format;
}

QString TextOf(const rtf::Paragraph &paragraph)
{
    QString text;
    for (const rtf::Run &run : paragraph.runs)
        text += QString::fromStdU16String(run.text);
    return text.simplified();
}

class DocumentFiller {
  public:
    DocumentFiller(QTextDocument &document, const rtf::Document &content)
        : content_(content),
          cursor_(&document)
    {
    }

    QList<Heading> Fill();

  private:
    using Position = std::vector<rtf::Paragraph>::const_iterator;

    bool FitsAsGrid(const rtf::Table &table) const;
    void AddParagraph(const rtf::Paragraph &paragraph);
    Position AddTable(Position first);
    void WriteRuns(const rtf::Paragraph &paragraph);
    void WritePicture(std::size_t number);
    void WriteRemark(const char *text);
    QTextTableFormat FormatOfTable(const rtf::Table &table) const;

    const rtf::Document &content_;
    QTextCursor cursor_;
    PictureDecoder decoder_;
    QList<Heading> headings_;
    int cells_ = 0;
    bool emptyBlock_ = true; ///< the cursor stands in a paragraph that nothing was written in yet
};

QList<Heading> DocumentFiller::Fill()
{
    cursor_.beginEditBlock();
    for (auto at = content_.paragraphs.begin(); at != content_.paragraphs.end();) {
        if (at->cell && FitsAsGrid(content_.tables[at->cell->table]))
            at = AddTable(at);
        else
            AddParagraph(*at++);
    }
    if (content_.cutOff) {
        AddParagraph({});
        WriteRemark(messages::GuideCutOff);
    }
    cursor_.endEditBlock();
    return std::move(headings_);
}

bool DocumentFiller::FitsAsGrid(const rtf::Table &table) const
{
    return table.rows <= MostCells && cells_ + table.rows * table.columns <= MostCells;
}

void DocumentFiller::AddParagraph(const rtf::Paragraph &paragraph)
{
    const QTextBlockFormat format = FormatOf(paragraph.style);
    if (emptyBlock_)
        cursor_.setBlockFormat(format);
    else
        cursor_.insertBlock(format);
    emptyBlock_ = false;
    if (paragraph.style.headingLevel > 0)
        if (const QString text = TextOf(paragraph); !text.isEmpty())
            headings_.append({text, paragraph.style.headingLevel, cursor_.position()});
    WriteRuns(paragraph);
}

void DocumentFiller::WriteRuns(const rtf::Paragraph &paragraph)
{
    for (const rtf::Run &run : paragraph.runs) {
        if (run.picture)
            WritePicture(*run.picture);
        else
            cursor_.insertText(QString::fromStdU16String(run.text), FormatOf(run.style));
    }
}

void DocumentFiller::WritePicture(std::size_t number)
{
    const rtf::Picture &picture = content_.pictures[number];
    if (!PictureDecoder::Knows(picture.kind))
        return WriteRemark(messages::OtherPicture);
    QImage image = decoder_.Decode(picture);
    if (image.isNull())
        return WriteRemark(messages::DamagedPicture);
    const QSize shown = ShownSize(picture, image.size());
    // The page itself would draw a smaller one by leaving pixels out.
    const QSize sharp = shown * qApp->devicePixelRatio();
    if (image.width() > sharp.width() || image.height() > sharp.height())
        image = image.scaled(sharp, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    QTextImageFormat format;
    format.setName(QString("picture:%1").arg(number));
    format.setWidth(shown.width());
    format.setHeight(shown.height());
    cursor_.document()->addResource(QTextDocument::ImageResource, format.name(), image);
    cursor_.insertImage(format);
}

/// What the page itself says, not the guide.
void DocumentFiller::WriteRemark(const char *text)
{
    rtf::TextStyle slanted;
    slanted.italic = true;
    cursor_.insertText(text, FormatOf(slanted));
}

QTextTableFormat DocumentFiller::FormatOfTable(const rtf::Table &table) const
{
    QTextTableFormat format;
    format.setBorder(1);
    format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    format.setBorderBrush(QColor(Qt::lightGray));
    format.setBorderCollapse(true);
    format.setCellPadding(CellPadding);
    format.setCellSpacing(0);
    // The paragraph after a table has no room above it of its own.
    format.setBottomMargin(RoomAfterTable);
    const auto &ends = table.cellEnds;
    if (ends.size() == std::size_t(table.columns) && ends.front() > 0 &&
        std::is_sorted(ends.begin(), ends.end())) {
        QList<QTextLength> widths;
        int start = 0;
        for (const int end : ends) {
            widths.append(QTextLength(QTextLength::PercentageLength, 100.0 * (end - start) / ends.back()));
            start = end;
        }
        format.setColumnWidthConstraints(widths);
        format.setWidth(QTextLength(QTextLength::PercentageLength, 100));
    }
    return format;
}

DocumentFiller::Position DocumentFiller::AddTable(Position first)
{
    const int number = first->cell->table;
    const rtf::Table &table = content_.tables[number];
    QTextTable *grid = cursor_.insertTable(table.rows, table.columns, FormatOfTable(table));
    cells_ += table.rows * table.columns;
    auto at = first;
    std::optional<rtf::CellPlace> place;
    for (; at != content_.paragraphs.end() && at->cell && at->cell->table == number; ++at) {
        const QTextTableCell cell = grid->cellAt(at->cell->row, at->cell->column);
        emptyBlock_ = place != at->cell;
        place = at->cell;
        cursor_ = emptyBlock_ ? cell.firstCursorPosition() : cell.lastCursorPosition();
        AddParagraph(*at);
    }
    cursor_.setPosition(grid->lastPosition() + 1);
    emptyBlock_ = true;
    return at;
}

} // namespace

QList<Heading> FillDocument(QTextDocument &document, const rtf::Document &content)
{
    return DocumentFiller(document, content).Fill();
}

} // namespace kelvo
