#include "framework/window/GridNotices.h"

#include "framework/document/TestDocument.h"
#include "framework/grid/DataGrid.h"
#include "framework/grid/TabText.h"
#include "framework/window/GridView.h"

#include <QFontMetrics>

#include <utility>

using namespace Qt::StringLiterals;

namespace
{

constexpr qsizetype kLongestText = 40;

/// A text that was pasted or typed, in quotation marks and in one line.
QString Quoted(const QString& text)
{
    const QString line = text.simplified();
    return u"\"%1\""_s.arg(line.size() <= kLongestText ? line : line.first(kLongestText) + u'…');
}

QString WithoutFirstRow(const QString& text)
{
    return MakeTabText(ParseTabText(text).sliced(1));
}

} // namespace

QString RefusalNotice(const GridView& view, const QString& text)
{
    return u"%1 non è un numero da 0 a %2"_s.arg(Quoted(text), view.Grid().Format().LargestText());
}

QString PasteNotice(const PasteCount& count)
{
    QString text = u"Celle incollate: %1"_s.arg(count.taken);
    if (count.firstRefused)
        text += u", rifiutate: %1 (la prima: riga %2, colonna %3, %4)"_s.arg(
            QString::number(count.refused), QString::number(count.firstRefused->row + 1),
            QString::number(count.firstRefused->col + 1), Quoted(count.firstRefused->text));
    if (count.outside > 0)
        text += u", fuori dalla griglia: %1"_s.arg(count.outside);
    if (count.rounded > 0)
        text += u", arrotondate per il formato: %1"_s.arg(count.rounded);
    return text;
}

GridNotices::GridNotices(TestDocument& document, Guard guard, NoticeBar& bar, QObject* parent)
    : QObject(parent), m_document(document), m_guard(std::move(guard)), m_bar(bar)
{
}

void GridNotices::Watch(GridView* view)
{
    connect(view, &GridView::Refused, this, [this, view](const QString& text) {
        m_bar.Show({NoticeCause::Cell, RefusalNotice(*view, text)});
    });
    connect(view, &GridView::RefusalPast, this, [this] { m_bar.End(NoticeCause::Cell); });
    connect(view, &GridView::Pasted, this,
            [this, view](const PasteCount& count, const QString& text) { TellPaste(view, count, text); });
}

void GridNotices::TellPaste(GridView* view, const PasteCount& count, const QString& text)
{
    m_pasteState = m_document.Steps().State();
    m_pasteDone = m_document.Steps().Done();
    if (count.Plain()) {
        m_bar.End(NoticeCause::Paste);
        return;
    }
    m_bar.Show({NoticeCause::Paste, PasteNotice(count), Offers(view, count, text)});
}

/// A row of titles is left out of both: none of it would ever be taken.
QList<NoticeAction> GridNotices::Offers(GridView* view, PasteCount count, const QString& text)
{
    const QString values = count.headed ? WithoutFirstRow(text) : text;
    if (count.headed)
        --count.block.rows;
    QList<NoticeAction> offers;
    QStringList sizes;
    for (const auto& [field, number] : m_document.GrowthFor(view->Grid(), count.block))
        sizes += u"%1 %2"_s.arg(number).arg(field->counted);
    sizes.removeDuplicates(); // of groups that grow alike
    if (!sizes.isEmpty())
        offers.append({u"Porta a %1 e incolla tutto"_s.arg(sizes.join(u" e "_s)),
                       [this, view, count, values] { PasteAgain(view, count, values, true); }});
    if (count.headed)
        offers.append({u"Incolla senza la prima riga"_s,
                       [this, view, count, values] { PasteAgain(view, count, values, false); }});
    return offers;
}

/// In the place of the paste that was told of; whole: with sizes that hold all of the text.
void GridNotices::PasteAgain(GridView* view, const PasteCount& count, const QString& text, bool whole)
{
    m_guard([&] {
        if (count.changed && m_document.Steps().State() == m_pasteState)
            m_document.Undo();
        const GridBlock& block = count.block;
        const PasteCount again = whole ? m_document.PasteWhole(view->Grid(), block, text)
                                       : view->Grid().Edits().PasteText(block.row, block.col, text);
        view->setCurrentIndex(view->model()->index(block.row, block.col));
        TellPaste(view, again, text);
    });
}

void GridNotices::StepMade()
{
    const History& steps = m_document.Steps();
    if (steps.Done() < m_pasteDone)
        m_bar.End(NoticeCause::Paste);
    else if (steps.State() != m_pasteState)
        m_bar.EndActions(NoticeCause::Paste);
}
