// The fields that size the grids: what is typed there, how they settle, and the way back.
#pragma once

#include "framework/window/Guard.h"

#include <QGridLayout>
#include <QLatin1StringView>
#include <QLineEdit>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>

class TestDocument;

/// A size field in a frame: the names of its two labels.
struct SizeRow {
    QLatin1StringView control;
    QString labelName;
    QString minimumName;
};

class SizeFields : public QObject
{
    Q_OBJECT

public:
    SizeFields(TestDocument& document, Guard guard, QObject* parent);

    /// The field of a row, in the next row of a layout: caption, field, smallest number.
    void Add(QGridLayout* layout, int at, const SizeRow& row);
    /// The field that has the focus settles as on losing it. False when its number was refused: it keeps the
    /// focus, with the number that took the refused one's place.
    [[nodiscard]] bool Settle();
    void Refresh();

Q_SIGNALS:
    /// A field refused what was typed into it; an empty text: that is past.
    void Refused(const QString& notice);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    QLineEdit* Make(QLatin1StringView control);
    bool Key(const QKeyEvent& key);
    void Turn(bool forward);
    void ShowMenu(QLineEdit* edit, const QPoint& at);
    bool Leave(QLineEdit* edit);

    TestDocument& m_document;
    Guard m_guard;
    QList<QLineEdit*> m_fields;
    QPointer<QLineEdit> m_current; ///< has the focus, or will have it back from a menu or another program
    const QLineEdit* m_refused = nullptr; ///< the last one whose number was refused
};
