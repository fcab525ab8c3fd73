// What every test window has around its document: toolbar, menus, panels, bands, descriptions, number format
// dialog.
#include "Compare.h"
#include "WindowWorld.h"
#include "framework/window/EditCommands.h"
#include "framework/window/NumberFormatDialog.h"
#include "framework/window/TestMenus.h"
#include "validation/limits/LimiDocument.h"
#include "validation/limits/LimiWindow.h"

#include <QApplication>
#include <QClipboard>
#include <QPushButton>
#include <QSignalSpy>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace
{

QString Captions(const QMenu* menu)
{
    QStringList captions;
    for (const QAction* action : menu->actions()) {
        if (action->isVisible())
            captions += action->isSeparator() ? u"-"_s : action->text();
    }
    return captions.join(u'|');
}

} // namespace

class FurnishingsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        FailOnWarnings();
        m_open = std::make_unique<WindowWorld<LimiWindow, LimiDocument>>();
    }

    void MenusOfALimitsWindow()
    {
        QStringList menus;
        for (const QMenu* menu : m_open->window->Menus())
            menus += menu->title() + u": "_s + Captions(menu);
        QCOMPARE(
            menus,
            QStringList(
                {u"&File: &Nuovo|&Apri...|&Salva|Salva con &nome...|-|&Stampa...|&Imposta stampante...|-|-|"
                 "&Chiudi"_s,
                 u"&Modifica: &Taglia|&Copia|&Incolla|Ca&ncella"_s,
                 u"&Strumenti: &Calcola|-|&Setup formato numeri..."_s,
                 u"M&etodi: &Specificità...|&Taratura...|&Ripetibilità...|&Accuratezza...|"
                 "&Riproducibilità...|Precisione &intermedia..."_s,
                 u"&Finestre: Affianca &orizzontalmente|Affianca &verticalmente|&Sovrapponi|&Disponi icone"_s,
                 u"&?: &Guida in linea|&Metodo|&Parametri fondamentali di statistica|-|"
                 "&Normativa di riferimento ICH|&Testo di riferimento V.Marzen"_s}));
        QCOMPARE(m_open->Find<QAction>("ModificaTaglia")->shortcut(), QKeySequence(u"Shift+Del"_s));
        QCOMPARE(m_open->Find<QAction>("ModificaCancella")->shortcut(), QKeySequence(u"Ctrl+X"_s));
    }

    void MethodsOfEachWindow_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("captions"); // the part that differs
        QTest::addRow("PREC") << u"PREC"_s << u"&Accuratezza...|&Limite ril. e det....|&Riproducibilità..."_s;
        QTest::addRow("PRIN") << u"PRIN"_s << u"&Accuratezza...|&Limite rip. e det....|&Riproducibilità..."_s;
        QTest::addRow("SPEC") << u"SPEC"_s
                              << u"&Taratura...|&Ripetibilità...|&Accuratezza...|&Limite rip. e det...."_s;
        QTest::addRow("TARA") << u"TARA"_s
                              << u"&Specificità...|&Ripetibilità...|&Accuratezza...|&Limite rip. e det...."_s;
        QTest::addRow("ACCU") << u"ACCU"_s << u"&Ripetibilità...|&Limite ril. e det...|&Riproducibilità..."_s;
        QTest::addRow("RIPR") << u"RIPR"_s
                              << u"&Accuratezza...|&Limite rip. e det....|Precisione &intermedia..."_s;
    }

    void MethodsOfEachWindow()
    {
        QFETCH(QString, key);
        QFETCH(QString, captions);
        QWidget parent;
        const auto menus = BuildMenus(&parent, *FindTest(key), [](const QString&) { return [] {}; });
        const QString all = Captions(menus[3]);
        QVERIFY2(all.contains(captions) && all.count(u'|') == 5, qPrintable(all));
        QCOMPARE(parent.findChild<QAction*>(u"FileStampaGrafico"_s) != nullptr, true);
        QCOMPARE(parent.findChild<QAction*>(u"StrumentiConcentrazioni"_s) != nullptr,
                 key == u"PRIN" || key == u"TARA" || key == u"RIPR");
    }

    void ToolbarOfALimitsWindow()
    {
        auto* toolbar = m_open->window->findChild<QToolBar*>();
        QStringList keys;
        for (const QAction* action : toolbar->actions()) {
            keys += action->isSeparator() ? u"-"_s : action->objectName();
            QVERIFY(action->isSeparator() || !action->icon().isNull());
        }
        QCOMPARE(keys.join(u' '),
                 u"New Open Save - Cut Copy Paste - Print - Sum - Plan StatPar Help - ICH Libro - Exit"_s);
        QCOMPARE(m_open->Find<QAction>("Sum")->toolTip(), u"Calcola risultati"_s);
    }

    void Panels()
    {
        m_open->window->Activated();
        QStringList panels;
        for (const StatusPanel* panel : m_open->window->findChildren<StatusPanel*>())
            panels += panel->objectName() + (panel->IsInset() ? u"-"_s : u"+"_s);
        QCOMPARE(panels.join(u' '), u"DescrBar- StatusBar- Spec+ Tara- Ripe+ Accu+ Ripr+ Prin+"_s);
        QTest::mouseClick(m_open->Find<StatusPanel>("Ripe"), Qt::LeftButton);
        QVERIFY(m_open->Find<StatusPanel>("Ripe")->IsInset());
        QTest::mouseClick(m_open->Find<StatusPanel>("Tara"), Qt::LeftButton);
        QTest::mouseClick(m_open->Find<StatusPanel>("DescrBar"), Qt::LeftButton); // no effect
        QCOMPARE(m_open->frame.shown, QStringList({u"PREC"_s, u"TARA"_s}));
    }

    void MenuEntriesReachTheFrame()
    {
        m_open->Find<QAction>("MnuMetod5")->trigger();
        QCOMPARE(m_open->frame.shown, QStringList(u"PRIN"_s));
        for (const char* name :
             {"MnuFinestreTile", "MnuFinestreVTile", "MnuFinestreCascade", "MnuFinestreDisponiIcone"})
            m_open->Find<QAction>(name)->trigger();
        QCOMPARE(m_open->frame.arranged, QList<int>({1, 2, 0, 3}));
    }

    void Bands()
    {
        const QImage image = m_open->window->grab().toImage().scaled(m_open->window->size());
        const auto colorAt = [&](int y) { return image.pixelColor(1, y); };
        QCOMPARE(colorAt(0), QColor(0xF3, 0xED, 0xAA));
        QCOMPARE(colorAt(65), QColor(0xF3, 0xED, 0xAA)); // 1000 twips are 66.7 points
        QCOMPARE(colorAt(68), QColor(0xF2, 0xEC, 0xA3));
        QCOMPARE(colorAt(3 * 67 + 5), QColor(0xF0, 0xEA, 0x95));
    }

    void DescriptionsFollowTheMouse()
    {
        m_open->window->findChild<QTabWidget*>()->setCurrentIndex(1);
        const auto over = [&](QWidget* widget) {
            QTest::mouseMove(widget, QPoint(3, 3));
            QMouseEvent move(QEvent::MouseMove, QPointF(3, 3), widget->mapToGlobal(QPointF(3, 3)),
                             Qt::NoButton, {}, {});
            QApplication::sendEvent(widget, &move);
            return m_open->Find<StatusPanel>("DescrBar")->text();
        };
        QCOMPARE(over(m_open->window->findChild<GridView*>()->viewport()),
                 u"Griglia per l'inserimento dei dati"_s);
        QCOMPARE(over(m_open->window->findChild<QGroupBox*>(u"Frame2"_s)),
                 u"Mostra i risultati dell'elaborazione"_s);
        QCOMPARE(over(m_open->window->findChild<QLabel*>(u"StDev"_s)),
                 u"Mostra i risultati dell'elaborazione"_s);
        QCOMPARE(over(m_open->window->findChild<QGroupBox*>(u"Frame4"_s)), QString());
        m_open->window->findChild<QTabWidget*>()->setCurrentIndex(0);
        QCOMPARE(over(m_open->window->findChild<QPlainTextEdit*>()->viewport()),
                 u"Mostra il testo delle conclusioni"_s);
        QCOMPARE(over(m_open->window->findChild<QTabWidget*>()), QString());
    }

    void PasteIsDescribed()
    {
        QApplication::clipboard()->setText(u"1\nx\n3"_s);
        m_open->window->findChild<QTabWidget*>()->setCurrentIndex(1);
        auto* view = m_open->window->findChild<GridView*>();
        view->setFocus();
        view->setCurrentIndex(view->model()->index(8, 0));
        m_open->Find<QAction>("ModificaIncolla")->trigger();
        QCOMPARE(m_open->Find<StatusPanel>("DescrBar")->text(),
                 u"Celle incollate: 1, rifiutate: 1, fuori dalla griglia: 1"_s);
        QVERIFY(m_open->Find<QAction>("FileSalva")->isEnabled()); // a paste is a cell change
    }

    void PasteNeedsText()
    {
        auto* menu = m_open->window->findChild<QMenu*>(u"Modifica"_s);
        QApplication::clipboard()->clear();
        Q_EMIT menu->aboutToShow();
        QVERIFY(!m_open->Find<QAction>("ModificaIncolla")->isEnabled());
        QApplication::clipboard()->setText(u"1"_s);
        Q_EMIT menu->aboutToShow();
        QVERIFY(m_open->Find<QAction>("ModificaIncolla")->isEnabled());
    }

    void EditCommandsInAField()
    {
        auto* field = m_open->window->findChild<QLineEdit*>(u"aInputData0"_s);
        QVERIFY(field->hasFocus()); // where a new window begins
        QTest::keyClicks(field, u"HPLC"_s);
        field->selectAll();
        QApplication::clipboard()->setText(u"GC\nMS"_s);
        m_open->Find<QAction>("Paste")->trigger();
        QCOMPARE(m_open->window->Document().InputData(0), u"GC MS"_s); // a header field is one line
        QCOMPARE(field->text(), u"GC MS"_s);
        field->setSelection(0, 3);
        m_open->Find<QAction>("Copy")->trigger();
        QCOMPARE(QApplication::clipboard()->text() + u'|' + field->text(), u"GC |GC MS"_s);
        m_open->Find<QAction>("Cut")->trigger();
        QCOMPARE(QApplication::clipboard()->text() + u'|' + field->text(), u"GC |MS"_s);
        field->selectAll();
        m_open->Find<QAction>("ModificaCancella")->trigger();
        QCOMPARE(m_open->window->Document().InputData(0), QString());
    }

    void NumberFormat_data()
    {
        QTest::addColumn<QString>("integers");
        QTest::addColumn<QString>("decimals");
        QTest::addColumn<QString>("format"); // empty: refused
        QTest::addColumn<QString>("message");
        const QString kSum = u"La somma di interi e decimali non puo' eccedere 13"_s;
        const QString kIntegers = u"Il valore degli interi deve essere > 0"_s;
        QTest::addRow("one and none") << u"1"_s << u"0"_s << u"0"_s << QString();
        QTest::addRow("four and two") << u"4"_s << u"2"_s << u"###0,00"_s << QString();
        QTest::addRow("most decimals") << u"1"_s << u"12"_s << u"0,000000000000"_s << QString();
        QTest::addRow("most integers") << u"13"_s << u"0"_s << u"############0"_s << QString();
        QTest::addRow("too many") << u"1"_s << u"13"_s << QString() << kSum;
        QTest::addRow("no integers") << u"0"_s << u"3"_s << QString() << kIntegers;
        QTest::addRow("both wrong") << u"0"_s << u"14"_s << QString() << kSum;
        QTest::addRow("an empty field") << u""_s << u"3"_s << QString() << kIntegers;
    }

    void NumberFormat()
    {
        QFETCH(QString, integers);
        QFETCH(QString, decimals);
        QFETCH(QString, format);
        QFETCH(QString, message);
        NumberFormatDialog dialog(m_open->window->Document().Grid(), m_open->world.Context(),
                                  [](const auto& event) { event(); });
        const std::array fields = {dialog.findChild<QLineEdit*>(u"NumForm0"_s),
                                   dialog.findChild<QLineEdit*>(u"NumForm1"_s)};
        QCOMPARE(fields[0]->text() + fields[1]->text(), u"33"_s);
        const std::array texts = {integers, decimals};
        for (std::size_t i = 0; i < fields.size(); ++i) {
            fields[i]->clear();
            QTest::keyClicks(fields[i], u"-x"_s + texts[i]); // digits alone pass
            QCOMPARE(fields[i]->text(), texts[i]);
        }
        dialog.findChild<QPushButton*>(u"Command10"_s)->click();
        QCOMPARE(dialog.NumberFormat, format);
        QCOMPARE(dialog.result() == QDialog::Accepted, message.isEmpty());
        QCOMPARE(m_open->world.messages.TakeOnly(), message.isEmpty() ? u"0 messages"_s : message);
    }

    void SetupChangesGridAndResults_data()
    {
        QTest::addColumn<bool>("changed"); // the tools are on, so that the results follow
        QTest::addRow("an untouched document") << false;
        QTest::addRow("a changed one") << true;
    }

    void SetupChangesGridAndResults()
    {
        QFETCH(bool, changed);
        DataGrid& grid = m_open->window->Document().Grid();
        if (changed)
            QVERIFY(grid.Edits().TypeText(0, 0, u"1,2345"_s));
        else
            grid.SetValue(0, 0, 1.2345);
        grid.Edits().SetChangeMade(false);
        AnswerFormat(u"4"_s, u"2"_s, "Command10");
        QTest::mouseDClick(m_open->Find<StatusPanel>("StatusBar"), Qt::LeftButton);
        QCOMPARE(grid.Text(0, 0), u"1,23"_s);
        QCOMPARE(grid.Format().LargestText(), u"9999,99"_s);
        QCOMPARE(m_open->Find<StatusPanel>("StatusBar")->text(), u"Formato numeri: Interi 4  Decimali 2"_s);
        QCOMPARE(m_open->window->findChild<QLabel*>(u"StDev"_s)->text(), changed ? u"0,39"_s : u"0,000"_s);
        QCOMPARE(m_open->world.define.NumFormat, u"###0.00"_s);
        QVERIFY(!m_open->window->Document().IsModify() && !m_open->window->Document().ChangeMade());

        AnswerFormat(u"9"_s, u"4"_s, "Command11"); // cancelled: all stays
        m_open->Find<QAction>("StrumentiSetup")->trigger();
        QCOMPARE(grid.Text(0, 0), u"1,23"_s);
        QCOMPARE(m_open->world.define.NumFormat, u"###0.00"_s);
    }

    void SmallWindowScrolls()
    {
        m_open->window->resize(m_open->window->minimumSizeHint());
        QVERIFY(m_open->window->height() < m_open->window->sizeHint().height());
        m_open->window->findChild<QTabWidget*>()->setCurrentIndex(1);
        const auto* values = m_open->window->findChild<QGroupBox*>(u"Frame5"_s);
        const auto* results = m_open->window->findChild<QGroupBox*>(u"Frame2"_s);
        QVERIFY(!values->geometry().intersects(results->geometry()));
        QVERIFY(values->height() >= values->minimumSizeHint().height());
    }

private:
    /// Fills the number format dialog once it is open, and presses one of its buttons.
    static void AnswerFormat(const QString& integers, const QString& decimals, const char* button)
    {
        QTimer::singleShot(0, QApplication::instance(), [=] {
            auto* dialog = QApplication::activeModalWidget();
            dialog->findChild<QLineEdit*>(u"NumForm0"_s)->setText(integers);
            dialog->findChild<QLineEdit*>(u"NumForm1"_s)->setText(decimals);
            dialog->findChild<QPushButton*>(QString::fromLatin1(button))->click();
        });
    }

    std::unique_ptr<WindowWorld<LimiWindow, LimiDocument>> m_open;
};

QTEST_MAIN(FurnishingsTest)
#include "FurnishingsTest.moc"
