#include "stories/Story.h"

#include "framework/window/GridView.h"

#include <QApplication>
#include <QClipboard>
#include <QDirIterator>
#include <QFileDialog>
#include <QLineEdit>
#include <QSettings>
#include <QTest>

#include <algorithm>
#include <iterator>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{
int g_beeps = 0;
} // namespace

/// Stands in the place of Qt's own for all of the test: a sound can't be heard otherwise.
void QApplication::beep()
{
    ++g_beeps;
}

namespace
{

constexpr QSize kFrame(1180, 860);

/// Of events, after which nothing more is to be expected.
constexpr int kRounds = 100;

/// Marks a dialog that was told of.
constexpr const char* kTold = "told";

/// The words of a step; blanks inside quotation marks belong to a word, "\n" and its like are what they are
/// in C.
QStringList Words(const QString& line)
{
    QStringList words;
    QString word;
    bool quoted = false;
    bool any = false;
    for (const QChar c : line) {
        if (c == u'"') {
            quoted = !quoted;
            any = true;
        } else if (c == u' ' && !quoted) {
            if (any)
                words += std::exchange(word, {});
            any = false;
        } else {
            word += c;
            any = true;
        }
    }
    if (any)
        words += word;
    words.replaceInStrings(u"\\r"_s, u"\r"_s)
        .replaceInStrings(u"\\n"_s, u"\n"_s)
        .replaceInStrings(u"\\t"_s, u"\t"_s);
    return words;
}

/// Until nothing is under way any more.
void Settle(MainWindow* frame)
{
    for (int i = 0; i < 4; ++i) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
        // What a window manager does when a menu or a dialog closes, and the offscreen platform does not.
        const QWidget* active = QApplication::activeWindow();
        if (frame != nullptr && frame->isVisible() && QApplication::activePopupWidget() == nullptr &&
            (active == nullptr || !active->isVisible()))
            frame->activateWindow();
    }
}
} // namespace

Story::Story(const QString& text) : m_text(text), m_home(std::make_unique<QTemporaryDir>())
{
    // Documents, settings and the working database are looked for below these.
    qputenv("HOME", QFile::encodeName(m_home->path()));
    for (const char* name : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_DOCUMENTS_DIR"})
        qunsetenv(name);
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_home->filePath(u".config"_s));
    QGuiApplication::clipboard()->clear();
    m_look.setSingleShot(true);
    m_look.callOnTimeout([this] { DoInDialogs(); });
    g_beeps = 0;
}

Story::~Story() = default;

void Story::Start()
{
    m_program.reset();
    m_program = std::make_unique<Program>();
    if (!m_program->Start()) {
        m_program.reset();
        return;
    }
    if (!std::exchange(m_started, true)) // later starts have to remember it
        m_program->Window().resize(kFrame);
    if (!QTest::qWaitForWindowActive(&m_program->Window()))
        QTest::qFail("the frame is not shown", __FILE__, __LINE__);
}

Story::Step Story::Parsed(const QString& line) const
{
    QString step = line.section(u' ', 1);
    if (step.startsWith(u'(') && step.endsWith(u')'))
        step = step.sliced(1).chopped(1);
    QStringList words = Words(step);
    words.replaceInStrings(u"HOME/"_s, m_home->path() + u'/');
    const QString verb = words.takeFirst();
    return {verb, words, line};
}

QString Story::Tell()
{
    const QStringList lines = m_text.chopped(1).split(u'\n');
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const QString& line = lines[i];
        if (line.isEmpty() || line.startsWith(u'#'))
            m_told += line;
        if (!line.startsWith(u"> "))
            continue;
        for (qsizetype next = i + 1; next < lines.size() && !lines[next].startsWith(u"> "); ++next) {
            if (lines[next].startsWith(u">> "))
                m_inside += Parsed(lines[next]);
        }
        m_told += line;
        m_look.start(0);
        const Step step = Parsed(line);
        m_waits = step.verb == u"rightclick" || line == u"> press Shift+F10"; // other menus let a step go on
        Do(step);
        m_waits = false;
        Settle(m_program == nullptr ? nullptr : &m_program->Window());
        m_look.stop();
        for (const Step& left : std::exchange(m_inside, {}))
            m_told += u"NO DIALOG FOR "_s + left.line;
        if (line.endsWith(u')')) // told elsewhere
            m_before = World();
        else
            TellChanges();
    }
    m_program.reset();
    return m_told.join(u'\n') + u'\n';
}

/// What a step waits for: a dialog, or a menu that does not let it go on.
QWidget* Story::Waiting() const
{
    QWidget* dialog = QApplication::activeModalWidget();
    return dialog == nullptr && m_waits ? QApplication::activePopupWidget() : dialog;
}

/// What a dialog shows. Of one of the program's own that was told of before, what has changed since.
void Story::TellDialog(QWidget* dialog)
{
    for (int i = 0; i < kRounds && dialog->isModal() && !dialog->isAncestorOf(QApplication::focusWidget());
         ++i) {
        dialog->activateWindow(); // the window manager's part, again
        QCoreApplication::processEvents();
    }
    const bool own =
        qobject_cast<QDialog*>(dialog) != nullptr && qobject_cast<QFileDialog*>(dialog) == nullptr;
    const bool named = own && !dialog->objectName().isEmpty();
    Picture& before = m_dialogs[named ? dialog->objectName() : QString::number(quintptr(dialog))];
    Picture now = PictureOf(dialog);
    if (const QWidget* focus = QApplication::focusWidget(); named && focus != nullptr)
        now.append({u"focus"_s, u"focus "_s + focus->objectName(), 1});
    if (!dialog->property(kTold).toBool()) {
        if (!named)
            before.clear();
        else if (!before.isEmpty())
            m_told += u"  "_s + now.constFirst().text;
        dialog->setProperty(kTold, true);
    }
    for (const QString& line : Changes(std::exchange(before, now), now))
        m_told += Cleaned(u"  "_s + line);
}

/// A dialog's own event loop calls this: its picture, the next step in it, and what that changed.
void Story::DoInDialogs()
{
    QWidget* dialog = Waiting();
    if (dialog == nullptr) { // it may have yet to come
        m_look.start(1);
        return;
    }
    TellDialog(dialog);
    m_look.start(0);
    if (m_inside.isEmpty()) {
        m_told += u"  STAYS OPEN"_s;
        dialog->close();
        return;
    }
    const Step step = m_inside.takeFirst();
    const QPointer<QWidget> open(dialog);
    m_told += step.line;
    Do(step);
    m_look.stop();
    if (open != nullptr && open->isVisible() && Waiting() == open)
        TellDialog(open);
    m_look.start(0);
}

Picture Story::World() const
{
    Picture world;
    const auto tell = [&world](const QString& what, const QString& text) {
        world.append({u'/' + what, text.isEmpty() ? what : what + u' ' + text});
    };
    if (m_program != nullptr && m_program->Window().isVisible()) {
        const MainWindow& window = m_program->Window();
        const QWidget* focus = QApplication::focusWidget();
        const auto* field = qobject_cast<const QLineEdit*>(focus);
        const auto* grid =
            field == nullptr ? nullptr : qobject_cast<GridView*>(field->parentWidget()->parentWidget());
        if (grid != nullptr)
            tell(u"typing"_s,
                 Quoted(field->text()) + (field->hasSelectedText() ? u" selected"_s : QString()));
        const QWidget* named = grid != nullptr ? grid : focus;
        tell(u"focus"_s, named == nullptr ? u"nowhere"_s : named->objectName());
        const QMdiSubWindow* active = window.findChild<QMdiArea*>()->currentSubWindow();
        const bool waits = active != nullptr && active->widget()->cursor().shape() == Qt::WaitCursor;
        tell(u"pointer"_s, waits ? u"hourglass"_s : u"arrow"_s);
        if (window.size() != kFrame)
            tell(u"size"_s, u"%1 x %2"_s.arg(window.width()).arg(window.height()));
        world += PictureOf(&window);
        if (const auto* popup = QApplication::activePopupWidget()) {
            tell(u"popup"_s, {});
            for (const PictureLine& line : PictureOf(popup))
                world.append({u"popup"_s + line.key, line.text, line.depth + 1});
        }
    } else {
        tell(u"ended"_s, {});
    }
    const QImage picture = QGuiApplication::clipboard()->image();
    tell(u"clipboard"_s, picture.isNull()
                             ? Quoted(QGuiApplication::clipboard()->text())
                             : u"a picture, %1 x %2, %3 mm wide"_s.arg(picture.width())
                                   .arg(picture.height())
                                   .arg(qRound(1000.0 * picture.width() / picture.dotsPerMeterX())));
    tell(u"beeps"_s, QString::number(g_beeps));
    return world + Files();
}

Picture Story::Files() const
{
    QMap<QString, QString> found;
    QDirIterator files(m_home->path(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString name = files.next();
        if (name.endsWith(u".MDB"_s) || name.contains(u"/.config/"_s) || name.contains(u"/.cache/"_s))
            continue;
        QFile file(name);
        const QByteArray bytes = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray(1, '\0');
        const bool plain = !bytes.contains('\0') && !bytes.startsWith("%PDF") && !bytes.startsWith("<?xml");
        QString text = plain ? QString::fromLatin1(bytes).replace(u'\r', u'$') : u"binary"_s;
        if (text.endsWith(u'\n'))
            text.chop(1);
        found.insert(Cleaned(name), BarredLines(text));
    }
    Picture picture;
    for (auto file = found.begin(); file != found.end(); ++file)
        picture.append({u"/file"_s + file.key(), u"file "_s + file.key() + file.value()});
    return picture;
}

void Story::TellChanges()
{
    Picture now = World();
    // Where the program has ended, a later start is compared with what was there before.
    if (m_program == nullptr || !m_program->Window().isVisible()) {
        std::ranges::copy_if(m_before, std::back_inserter(now), [](const PictureLine& line) {
            static const QStringList kOfProgram{u"/focus"_s, u"/pointer"_s, u"/size"_s};
            return kOfProgram.contains(line.key) || line.key.contains(u"frame MDIMain");
        });
    }
    for (const QString& change : Changes(m_before, now))
        m_told += Cleaned(u"  "_s + change);
    m_before = now;
}

/// Without what differs from one machine, or from one time, to the next.
QString Story::Cleaned(QString text) const
{
    text.replace(m_home->path(), u"HOME"_s).replace(QApplication::applicationDirPath(), u"PROGRAM"_s);
    return text;
}

/// A step that can't be done is told of, and the story goes on.
void Story::Do(const Step& step)
{
    try {
        Run(step);
    } catch (const NotDone& stopped) {
        m_told += u"  NOT DONE: "_s + stopped.why;
        while (auto* popup = QApplication::activePopupWidget())
            popup->close();
    }
}
