// A slim line that tells what the user has to know and may act on, until it is closed, acted on, or past.
#pragma once

#include <QBoxLayout>
#include <QFrame>
#include <QLabel>
#include <QList>
#include <QString>
#include <QToolButton>

#include <functional>

/// What a notice is about. There is one notice of each.
enum class NoticeCause { Reading, Results, Deed, Size, Cell, Paste };

struct NoticeAction {
    QString caption;
    std::function<void()> run; ///< ends the notice, or shows another one in its place, once it is done
};

struct Notice {
    NoticeCause cause = NoticeCause::Paste;
    QString text;
    QList<NoticeAction> actions = {}; ///< up to two
};

class NoticeBar : public QFrame
{
    Q_OBJECT

public:
    explicit NoticeBar(QWidget* parent = nullptr);

    /// Tab comes here behind this widget.
    void ComeBehind(QWidget* widget);
    /// In the place of a notice with the same cause, and in front of the others. Read out by a screen reader.
    void Show(const Notice& notice);
    /// What the notice was about is past. The one behind it comes up.
    void End(NoticeCause cause);
    /// What the notice offers can't be done any more; its text stays.
    void EndActions(NoticeCause cause);

Q_SIGNALS:
    /// A notice that has the focus is going.
    void Left();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Act(int index);
    void Refresh();
    void Arrange();

    QList<Notice> m_notices; ///< the last one is shown
    QLabel* m_text;
    QBoxLayout* m_actions;
    bool m_below = false;          ///< where the actions stand
    QList<QToolButton*> m_buttons; ///< the actions, and the cross
};
