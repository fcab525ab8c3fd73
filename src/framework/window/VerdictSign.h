// The sign beside a verdict: it tells the outcome to who does not read the words, nor sees colours.
#pragma once

#include <QLabel>
#include <QPaintEvent>
#include <QSize>
#include <QString>

class VerdictSign : public QLabel
{
    Q_OBJECT

public:
    enum class Kind {
        None, ///< nothing is drawn
        Good, ///< a check mark
        Bad,  ///< a cross
        Open, ///< a question mark: nothing could be told
    };

    explicit VerdictSign(const QString& name);

    /// dimmed: the verdict is that of a former state.
    void ShowKind(Kind kind, bool dimmed);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Kind m_kind = Kind::None;
    bool m_dimmed = false;
};
