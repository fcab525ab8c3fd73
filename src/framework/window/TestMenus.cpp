#include "framework/window/TestMenus.h"

#include <QKeySequence>

#include <array>

using namespace Qt::StringLiterals;

namespace
{

/// What an item or a button follows.
enum class Follows { Nothing, Data };

/// An item of a menu. An empty name is a separator.
struct Item {
    QString name;
    QString caption;
    Follows follows = Follows::Nothing;
    QString shortcut = {};
    QString onlyIn = {}; ///< the keys of the tests that have it; empty: all
    bool hidden = false;
};

struct Menu {
    QString name;
    QString caption;
    QList<Item> items;
};

const QString kWithChart = u"SPEC TARA PREC ACCU RIPR PRIN"_s;
const QString kWithColumns = u"LIMI PREC TARA"_s;
const QString kWithConcentrations = u"PRIN TARA RIPR"_s;

const QList<Menu>& MenuTable()
{
    static const QList<Menu> kMenus = {
        {u"File"_s,
         u"&File"_s,
         {{u"FileNuovo"_s, u"&Nuovo"_s, {}, u"Ctrl+N"_s},
          {u"FileApri"_s, u"&Apri..."_s, {}, u"Ctrl+O"_s},
          {u"FileSalva"_s, u"&Salva"_s, Follows::Data, u"Ctrl+S"_s},
          {u"FileSalvaNome"_s, u"Salva con &nome..."_s, Follows::Data},
          {},
          {u"FileStampa"_s, u"&Stampa..."_s, Follows::Data},
          {u"FileStampaGrafico"_s, u"Stampa &grafico..."_s, Follows::Data, {}, kWithChart},
          {u"FileImpostaStampante"_s, u"&Imposta stampante..."_s, Follows::Data},
          {},
          {u"FileCancella"_s, u"Canc&ella..."_s, {}, {}, kWithColumns, true},
          {},
          {u"FileChiudi"_s, u"&Chiudi"_s}}},
        {u"Modifica"_s,
         u"&Modifica"_s,
         // Deliberate: Ctrl+X is the shortcut of Cancella, not of Taglia.
         {{u"ModificaTaglia"_s, u"&Taglia"_s, {}, u"Shift+Del"_s},
          {u"ModificaCopia"_s, u"&Copia"_s, {}, u"Ctrl+Ins"_s},
          {u"ModificaIncolla"_s, u"&Incolla"_s, {}, u"Shift+Ins"_s},
          {u"ModificaCancella"_s, u"Ca&ncella"_s, {}, u"Ctrl+X"_s},
          {u"CopiaColonna"_s, u"Copia co&lonna"_s, {}, {}, kWithColumns, true},
          {u"IncollaColonna"_s, u"Incoll&a colonna"_s, {}, {}, kWithColumns, true}}},
        {u"Strumenti"_s,
         u"&Strumenti"_s,
         {{u"StrumentiCalcola"_s, u"&Calcola"_s, Follows::Data, u"F9"_s},
          {},
          {u"StrumentiSetup"_s, u"&Setup formato numeri..."_s},
          {u"StrumentiConcentrazioni"_s, u"C&oncentrazioni..."_s, {}, {}, kWithConcentrations}}},
        {u"MnuMetodi"_s, u"M&etodi"_s, {}},
        {u"MnuFinestre"_s,
         u"&Finestre"_s,
         {{u"MnuFinestreTile"_s, u"Affianca &orizzontalmente"_s},
          {u"MnuFinestreVTile"_s, u"Affianca &verticalmente"_s},
          {u"MnuFinestreCascade"_s, u"&Sovrapponi"_s},
          {u"MnuFinestreDisponiIcone"_s, u"&Disponi icone"_s}}},
        {u"Help"_s,
         u"&?"_s,
         {{u"HelpGuida"_s, u"&Guida in linea"_s},
          {u"HelpMetodo"_s, u"&Metodo"_s},
          {u"HelpStat"_s, u"&Parametri fondamentali di statistica"_s},
          {},
          {u"Normativa"_s, u"&Normativa di riferimento ICH"_s},
          {u"MarzenBook"_s, u"&Testo di riferimento V.Marzen"_s}}},
    };
    return kMenus;
}

/// The entries of MnuMetodi: a test and the caption that it has in this window.
struct Method {
    QString key;
    QString caption;
};

const Method kSpec{u"SPEC"_s, u"&Specificità..."_s};
const Method kTara{u"TARA"_s, u"&Taratura..."_s};
const Method kPrec{u"PREC"_s, u"&Ripetibilità..."_s};
const Method kAccu{u"ACCU"_s, u"&Accuratezza..."_s};
const Method kRipr{u"RIPR"_s, u"&Riproducibilità..."_s};
const Method kPrin{u"PRIN"_s, u"Precisione &intermedia..."_s};
// Deliberate: three spellings of one caption, each in its windows.
const Method kLimiRil{u"LIMI"_s, u"&Limite ril. e det...."_s};
const Method kLimiRip{u"LIMI"_s, u"&Limite rip. e det...."_s};
const Method kLimiThreeDots{u"LIMI"_s, u"&Limite ril. e det..."_s};

QList<Method> MethodsOf(QLatin1StringView key)
{
    if (key == "LIMI"_L1)
        return {kSpec, kTara, kPrec, kAccu, kRipr, kPrin};
    if (key == "PREC"_L1)
        return {kSpec, kTara, kAccu, kLimiRil, kRipr, kPrin};
    if (key == "PRIN"_L1)
        return {kSpec, kTara, kPrec, kAccu, kLimiRip, kRipr};
    if (key == "SPEC"_L1)
        return {kTara, kPrec, kAccu, kLimiRip, kRipr, kPrin};
    if (key == "TARA"_L1)
        return {kSpec, kPrec, kAccu, kLimiRip, kRipr, kPrin};
    if (key == "ACCU"_L1)
        return {kSpec, kTara, kPrec, kLimiThreeDots, kRipr, kPrin};
    return {kSpec, kTara, kPrec, kAccu, kLimiRip, kPrin};
}

/// A button of the toolbar; an empty key is a separator.
struct Button {
    QString key;
    QString toolTip;
    Follows follows = Follows::Nothing;
};

const QList<Button>& ButtonTable()
{
    static const QList<Button> kButtons = {
        {u"New"_s, u"Nuovo file"_s},
        {u"Open"_s, u"Apri file"_s},
        {u"Save"_s, u"Salva file"_s, Follows::Data},
        {},
        {u"Cut"_s, u"Taglia"_s},
        {u"Copy"_s, u"Copia"_s},
        {u"Paste"_s, u"Incolla"_s},
        {},
        {u"Print"_s, u"Stampa report"_s, Follows::Data},
        {u"PrintGraph"_s, u"Stampa grafico"_s, Follows::Data},
        {},
        {u"Sum"_s, u"Calcola risultati"_s, Follows::Data},
        {},
        {u"Plan"_s, u"Descrizione metodo"_s},
        {u"StatPar"_s, u"Parametri statistica"_s},
        {u"Help"_s, u"Guida"_s},
        {},
        {u"ICH"_s, u"Normativa di riferimento ICH"_s},
        {u"Libro"_s, u"Testo di riferimento V.Marzen"_s},
        {},
        {u"Exit"_s, u"Chiudi"_s},
    };
    return kButtons;
}

QAction* AddItem(QMenu* menu, const Item& item)
{
    if (item.name.isEmpty())
        return menu->addSeparator();
    QAction* action = menu->addAction(item.caption);
    action->setObjectName(item.name);
    action->setVisible(!item.hidden);
    if (!item.shortcut.isEmpty())
        action->setShortcut(QKeySequence(item.shortcut));
    return action;
}

constexpr const char* kGreyReasons = "greyReasons";
constexpr const char* kFollowsData = "followsData";

void Connect(QAction* action, QObject* receiver, const FindCommand& find, Follows follows)
{
    if (const auto run = find(action->objectName()))
        QObject::connect(action, &QAction::triggered, receiver, run);
    else
        SetGrey(action, Grey::NoCommand, true);
    action->setProperty(kFollowsData, follows == Follows::Data);
}

} // namespace

Greys GreyReasons(const QAction* action)
{
    return Greys::fromInt(action->property(kGreyReasons).toInt());
}

void SetGrey(QAction* action, Grey reason, bool grey)
{
    const Greys reasons = GreyReasons(action).setFlag(reason, grey);
    action->setProperty(kGreyReasons, reasons.toInt());
    action->setEnabled(!reasons);
}

void SetDataState(const QList<QAction*>& actions, bool data)
{
    for (QAction* action : actions) {
        if (action->property(kFollowsData).toBool())
            SetGrey(action, Grey::NoData, !data);
    }
}

QList<QMenu*> BuildMenus(QWidget* parent, const TestInfo& info, const FindCommand& find)
{
    QList<QMenu*> menus;
    for (const Menu& entry : MenuTable()) {
        auto* menu = new QMenu(entry.caption, parent);
        menu->setObjectName(entry.name);
        for (const Item& item : entry.items) {
            if (!item.onlyIn.isEmpty() && !item.onlyIn.contains(info.key))
                continue;
            QAction* action = AddItem(menu, item);
            if (!action->isSeparator())
                Connect(action, parent, find, item.follows);
        }
        if (entry.name == u"MnuMetodi"_s) {
            int index = 0;
            for (const Method& method : MethodsOf(info.key))
                Connect(AddItem(menu, {u"MnuMetod%1"_s.arg(index++), method.caption}), parent, find,
                        Follows::Nothing);
        }
        menus.append(menu);
    }
    return menus;
}

void BuildToolbar(QToolBar* toolbar, const TestInfo& info, const FindCommand& find)
{
    for (const Button& button : ButtonTable()) {
        if (button.key.isEmpty()) {
            toolbar->addSeparator();
            continue;
        }
        if (button.key == u"PrintGraph"_s && info.key == "LIMI"_L1)
            continue;
        QAction* action = toolbar->addAction(button.toolTip);
        action->setObjectName(button.key);
        QIcon icon(u":/toolbar/%1.svg"_s.arg(button.key));
        icon.addFile(u":/toolbar/%1-grey.svg"_s.arg(button.key), {}, QIcon::Disabled);
        action->setIcon(icon);
        action->setToolTip(button.toolTip);
        action->setStatusTip(button.toolTip);
        Connect(action, toolbar, find, button.follows);
    }
}

QList<QString> OtherTests(const TestInfo& info)
{
    QList<QString> keys;
    for (const Method& method : MethodsOf(info.key))
        keys.append(method.key);
    return keys;
}
