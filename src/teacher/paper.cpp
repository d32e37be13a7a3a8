#include "teacher/paper.h"

#include <QFile>
#include <QFileDialog>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QSvgRenderer>
#include <QTextDocument>

#include "platform/qt/house_style.h"
#include "platform/qt/typefaces.h"
#include "school/class_grid.h"
#include "school/result_list.h"
#include "school/standing.h"

// In a library the drawings are linked only where somebody names them, which the macro can't do in a namespace.
static void link_drawings() { Q_INIT_RESOURCE(artwork); }

namespace marrowfen {

namespace {

/// Lines of text in the middle of a page, one below the other.
class Lines {
public:
    Lines(QPainter& painter, const QRectF& page, double top) : painter_(painter), page_(page), y_(top) {}

    /// `share`: of the page's height. A text that is too wide becomes smaller.
    void add(const QString& text, QFont font, double share, const QColor& colour) {
        const double height = page_.height() * share;
        constexpr double kFontShare = 0.7;
        constexpr double kWidthShare = 0.86;
        int pixels = static_cast<int>(height * kFontShare);
        font.setPixelSize(pixels);
        const double room = page_.width() * kWidthShare;
        const double width = QFontMetricsF(font, painter_.device()).horizontalAdvance(text);
        if (width > room) font.setPixelSize(std::max(1, static_cast<int>(pixels * room / width)));
        painter_.setFont(font);
        painter_.setPen(colour);
        painter_.drawText(QRectF(page_.left(), y_, page_.width(), height), Qt::AlignCenter, text);
        y_ += height;
    }
    void leave(double share) { y_ += page_.height() * share; }

private:
    QPainter& painter_;
    QRectF page_;
    double y_;
};

void draw_in(QPainter& painter, const QString& drawing, const QRectF& place) {
    QSvgRenderer renderer(drawing);
    QSizeF size = renderer.defaultSize();
    size.scale(place.size(), Qt::KeepAspectRatio);
    QRectF target({}, size);
    target.moveCenter(place.center());
    renderer.render(&painter, target);
}

QString best_of(const Book& book, std::int64_t pupil, std::int64_t game, QString& team, QString& date) {
    const Played* best = nullptr;
    for (const auto place : results_that_fit(book, {.pupils = {pupil}, .game = game})) {
        const Played& played = book.results()[place];
        if (best == nullptr || is_better(played, *best)) best = &played;
    }
    if (best == nullptr) return {};
    const std::string name = team_of(*best);
    team = name.empty() ? QString{} : QObject::tr("in the %1 team").arg(shown(name));
    date = QLocale().toString(QDate(1970, 1, 1).addDays(best->day), QLocale::LongFormat);
    if (best->day == Played::kUnknown) date.clear();
    return shown(points_text(*best)) +
           (best->time_limit == 0 ? QString{} : QObject::tr(" in %1").arg(shown(minutes_text(best->taken))));
}

}  // namespace

Paper certificate(Office& office, std::int64_t pupil, std::int64_t game) {
    link_drawings();
    return {.orientation = QPageLayout::Landscape, .paint = [&office, pupil, game](QPrinter& printer) {
                const Typefaces faces(office.files());
                const QFont plain = faces.caption(comic(16), 16);
                const QFont bold = faces.caption(comic_bold(16), 16);
                const Book& book = office.book();
                QString team;
                QString date;
                const QString best = best_of(book, pupil, game, team, date);
                QPainter painter(&printer);
                const QRectF page(QPointF(0, 0), printer.pageLayout().paintRectPixels(printer.resolution()).size());
                constexpr double kBorder = 0.015;
                const double line = page.height() * kBorder;
                painter.setRenderHint(QPainter::Antialiasing);
                painter.setBrush(Qt::yellow);
                painter.setPen(QPen(colours::kDeepBlue, line));
                painter.drawRoundedRect(page.adjusted(line, line, -line, -line), line * 3, line * 3);
                draw_in(painter, QStringLiteral(":/artwork/title.svg"),
                        {page.width() * 0.2, page.height() * 0.06, page.width() * 0.6, page.height() * 0.16});
                Lines lines(painter, page, page.height() * 0.24);
                lines.add(QObject::tr("Well done!"), bold, 0.12, QColor(Qt::red));
                lines.add(shown(book.name_of(pupil)), bold, 0.16, colours::kInk);
                lines.add(QObject::tr("has played"), plain, 0.07, colours::kInk);
                lines.add(shown(book.game_name(game)), bold, 0.1, colours::kDeepBlue);
                lines.add((best + " " + team).trimmed(), plain, 0.09, colours::kInk);
                lines.leave(0.04);
                lines.add(date, plain, 0.06, colours::kInk);
            }};
}

Paper class_table(Office& office) {
    return {.orientation = QPageLayout::Landscape, .paint = [&office](QPrinter& printer) {
                const Book& book = office.book();
                const ClassGrid grid(book);
                QString html = QStringLiteral(
                                   "<style>td,th{padding:2px 4px}</style><h2>%1</h2><p>%2</p>"
                                   "<table border='1' cellspacing='0'><thead><tr><th>%3</th>")
                                   .arg(QObject::tr("Pupils by games, %1")
                                            .arg(QLocale().toString(QDate::currentDate(), QLocale::LongFormat)),
                                        shown(ClassGrid::legend()).toHtmlEscaped(), QObject::tr("Name"));
                for (const GameEntry* game : grid.games()) html += QStringLiteral("<th>%1</th>").arg(game->number);
                html += QStringLiteral("</tr></thead>");
                for (std::size_t row = 0; row < book.pupils().size(); ++row) {
                    html += QStringLiteral("<tr><td>%1</td>").arg(shown(book.pupils()[row].name).toHtmlEscaped());
                    for (std::size_t column = 0; column < grid.games().size(); ++column) {
                        html += QStringLiteral("<td align='center'>%1</td>")
                                    .arg(shown(grid.cell(row, column).text).toHtmlEscaped());
                    }
                    html += QStringLiteral("</tr>");
                }
                html += QStringLiteral("</table><p>");
                for (const GameEntry* game : grid.games())
                    html += shown(game->title()).toHtmlEscaped() + QStringLiteral(" &nbsp; ");
                QTextDocument document;
                constexpr int kPoints = 7;
                document.setDefaultFont(QFont(QStringLiteral("sans-serif"), kPoints));
                document.setHtml(html + QStringLiteral("</p>"));
                document.print(&printer);
            }};
}

void print_on_paper(QWidget* parent, const Paper& paper) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageOrientation(paper.orientation);
    QPrintDialog dialog(&printer, parent);
    if (dialog.exec() != QDialog::Accepted) return;
    paper.paint(printer);
    if (printer.printerState() == QPrinter::Error) {
        Office::tell(parent, QObject::tr("The printer does not answer. Save it as PDF and print that later."));
    }
}

bool write_pdf(const QString& file, const Paper& paper) {
    const QString unfinished = file + QStringLiteral(".part");
    {
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(unfinished);
        printer.setPageSize(QPageSize(QPageSize::A4));
        printer.setPageOrientation(paper.orientation);
        paper.paint(printer);
    }
    // The writer tells of no full disk: a file that has its last line is whole.
    QFile written(unfinished);
    constexpr qint64 kTail = 32;
    const bool whole = written.open(QIODevice::ReadOnly) && written.seek(std::max<qint64>(0, written.size() - kTail)) &&
                       written.readAll().contains("%%EOF");
    written.close();
    std::error_code error;
    if (whole) std::filesystem::rename(unfinished.toStdString(), file.toStdString(), error);
    if (whole && !error) return true;
    QFile::remove(unfinished);
    return false;
}

void save_as_pdf(QWidget* parent, Office& office, const Paper& paper, const QString& suggested_name) {
    const QString file =
        QFileDialog::getSaveFileName(parent, QObject::tr("Save as PDF"), suggested_name, QObject::tr("PDF (*.pdf)"));
    if (file.isEmpty()) return;
    if (write_pdf(file, paper)) {
        emit office.did(QObject::tr("Written: %1").arg(file));
    } else {
        Office::tell(
            parent,
            QObject::tr("%1 can't be written: the disk is full, or nothing can be made in that folder.").arg(file));
    }
}

}  // namespace marrowfen
