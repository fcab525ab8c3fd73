#include "framework/window/WindowCommands.h"

#include "framework/document/Define.h"
#include "framework/document/DocumentContext.h"
#include "framework/document/DocumentLife.h"
#include "framework/document/Messages.h"
#include "framework/document/TestDocument.h"
#include "framework/text/Found.h"
#include "framework/window/EditCommands.h"
#include "framework/window/Forms.h"
#include "framework/window/NumberFormatDialog.h"
#include "framework/window/TestMenus.h"
#include "stats/RuntimeFailure.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QScopeGuard>

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{

/// Where the first rows of a grid stand on the screen.
QRect FirstRows(const GridView& view)
{
    constexpr int kRows = 5;
    const int height = view.horizontalHeader()->height() + kRows * view.rowHeight(0);
    return {view.mapToGlobal(QPoint()), QSize(view.width(), height)};
}

} // namespace

WindowCommands::WindowCommands(QWidget& window, TestDocument& document, Frame& frame)
    : QObject(&window), m_window(window), m_document(document), m_frame(frame), m_toolbar(new QToolBar)
{
    m_toolbar->setObjectName(u"Toolbar1"_s);
    const auto edit = [this](void (*routine)(QWidget*)) {
        return [this, routine] { routine(m_window.focusWidget()); };
    };
    m_commands = {
        {u"FileNuovo"_s, [this] { FileNuovo(); }},
        {u"FileApri"_s, [this] { FileApri(); }},
        {u"FileSalva"_s, [this] { SaveDocument(m_document); }},
        {u"FileSalvaNome"_s, [this] { SaveDocumentAs(m_document); }},
        {u"FileChiudi"_s, [this] { FileChiudi(); }},
        {u"ModificaTaglia"_s, edit(EditCut), false},
        {u"ModificaCopia"_s, edit(EditCopy), false},
        {u"ModificaIncolla"_s, edit(EditPaste), false},
        {u"ModificaCancella"_s, edit(EditClear), false},
        {u"StrumentiCalcola"_s, [this] { StrumentiCalcola(); }},
        {u"StrumentiSetup"_s, [this] { StrumentiSetup(); }},
        {u"Sum"_s, [this] { m_document.Calc(); }},
    };
    AddArrangements();
    AddMethods();
}

/// What a button does: the same as an item, but for those that have commands of their own.
QString WindowCommands::ItemOf(const QString& button)
{
    static const std::array kButtons = {std::pair{u"New"_s, u"FileNuovo"_s},
                                        std::pair{u"Open"_s, u"FileApri"_s},
                                        std::pair{u"Save"_s, u"FileSalva"_s},
                                        std::pair{u"Cut"_s, u"ModificaTaglia"_s},
                                        std::pair{u"Copy"_s, u"ModificaCopia"_s},
                                        std::pair{u"Paste"_s, u"ModificaIncolla"_s},
                                        std::pair{u"Exit"_s, u"FileChiudi"_s},
                                        std::pair{u"Print"_s, u"FileStampa"_s},
                                        std::pair{u"PrintGraph"_s, u"FileStampaGrafico"_s}};
    const auto found = std::ranges::find(kButtons, button, &std::pair<QString, QString>::first);
    return found == kButtons.end() ? button : found->second;
}

void WindowCommands::AddArrangements()
{
    static const std::array kArrangements = {std::pair{u"MnuFinestreTile"_s, Arrangement::TileHorizontally},
                                             std::pair{u"MnuFinestreVTile"_s, Arrangement::TileVertically},
                                             std::pair{u"MnuFinestreCascade"_s, Arrangement::Cascade},
                                             std::pair{u"MnuFinestreDisponiIcone"_s, Arrangement::Icons}};
    for (const auto& [name, arrangement] : kArrangements)
        m_commands.push_back({name, [this, code = arrangement] { m_frame.Arrange(code); }, false});
}

void WindowCommands::AddMethods()
{
    const QList<QString> keys = OtherTests(m_document.Info());
    for (qsizetype i = 0; i < keys.size(); ++i) {
        if (m_frame.HasTest(keys[i]))
            m_commands.push_back(
                {u"MnuMetod%1"_s.arg(i), [this, key = keys[i]] { m_frame.ShowTest(key); }, false});
    }
}

void WindowCommands::Add(const Command& command)
{
    std::erase_if(m_commands, [&](const Command& known) { return known.name == command.name; });
    m_commands.push_back(command);
}

std::function<void()> WindowCommands::Find(const QString& name)
{
    const auto found = std::ranges::find(m_commands, ItemOf(name), &Command::name);
    if (found == m_commands.end())
        return {};
    if (found->settles)
        return [this, run = found->run] { RunCommand(run); };
    return [this, run = found->run] { Run(run); };
}

void WindowCommands::Build()
{
    const auto find = [this](const QString& name) { return Find(name); };
    m_menus = BuildMenus(&m_window, m_document.Info(), find);
    BuildToolbar(m_toolbar, m_document.Info(), find);
    for (GridView* view : std::as_const(m_grids))
        view->SetPopup(Menu("Modifica"_L1));
    connect(Menu("Modifica"_L1), &QMenu::aboutToShow, this, [this] {
        const bool any = !QGuiApplication::clipboard()->text().isEmpty();
        SetGrey(m_window.findChild<QAction*>(u"ModificaIncolla"_s), Grey::NoText, !any);
    });
    SetTools(false);
}

QMenu* WindowCommands::Menu(QLatin1StringView name) const
{
    return Found(m_menus, name, &QObject::objectName);
}

void WindowCommands::SetTools(bool data)
{
    SetDataState(m_toolbar->actions(), data);
    for (const QMenu* menu : std::as_const(m_menus))
        SetDataState(menu->actions(), data);
}

void WindowCommands::RunCommand(const std::function<void()>& command)
{
    if (Settle())
        Run(command);
    else
        Q_EMIT Ran();
}

bool WindowCommands::Settle()
{
    return (m_sizes == nullptr || m_sizes->Settle()) && std::ranges::all_of(m_grids, &GridView::CommitEditor);
}

void WindowCommands::Run(const std::function<void()>& event)
{
    std::optional<RuntimeFailure> failure;
    try {
        event();
    } catch (const RuntimeFailure& caught) {
        failure = caught;
    }
    const auto over = qScopeGuard([this] { Q_EMIT Ran(); });
    if (!failure)
        return;
    m_window.unsetCursor();
    const DocumentContext& context = m_document.Context();
    context.messages.Show(MessageIcon::Critical, context.define.AppTitle, FailureMessage(*failure));
    if (failure->Kind() == m_document.Shape().survives)
        return;
    // Once this event is over: the window that it runs in goes with the program.
    QMetaObject::invokeMethod(
        this, [this] { m_frame.EndProgram(); }, Qt::QueuedConnection);
}

void WindowCommands::FileNuovo()
{
    if (NewDocument(m_document))
        SetTools(false);
}

void WindowCommands::FileApri()
{
    if (OpenDocument(m_document))
        SetTools(true);
}

void WindowCommands::OpenFile(const QString& fileName)
{
    RunCommand([this, fileName] {
        if (OpenNamed(m_document, fileName))
            SetTools(true);
    });
}

void WindowCommands::FileChiudi()
{
    // The frame's own window of this one closes, too.
    if (m_window.parentWidget() != nullptr)
        m_window.parentWidget()->close();
    else
        m_window.close();
}

void WindowCommands::StrumentiCalcola()
{
    m_document.Calc();
    m_window.unsetCursor(); // also after a calculation that stopped without a word
}

void WindowCommands::StrumentiSetup()
{
    GridView* view = m_grids.front();
    view->setCurrentIndex(view->model()->index(0, 0));
    NumberFormatDialog dialog(m_document.Grid(), m_document.Context(), AsGuard(), DialogParent(&m_window));
    if (view->isVisible())
        KeepClearOf(&dialog, FirstRows(*view));
    dialog.exec();
    if (dialog.NumberFormat.isEmpty())
        return;
    m_document.ChooseDigits({.interi = dialog.NumInteger, .decimali = dialog.NumDecimal});
    if (m_toolbar->findChild<QAction*>(u"Sum"_s)->isEnabled())
        m_document.Calc();
}
