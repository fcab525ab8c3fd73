// The fields of a test window and their way to the document and back.
#pragma once

#include "framework/document/TestDocument.h"

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QList>
#include <QPlainTextEdit>
#include <QWidget>

#include <functional>

/// Makes the pieces that the pages of the tests are put together from. What the user types goes to the
/// document, through the window's guard; Refresh shows what the document holds.
class WindowFields : public QObject
{
    Q_OBJECT

public:
    /// Runs an event of the user and ends its failures.
    using Guard = std::function<void(const std::function<void()>&)>;

    WindowFields(TestDocument& document, Guard guard, QObject* parent);

    /// The header fields, each with its label; labelName is what the labels' objectNames begin with.
    QWidget* HeaderFields(const QString& labelName);
    /// A frame with the conclusions.
    QGroupBox* ConclusionsFrame(const QString& frameName);
    /// A field that sizes the grid.
    QLineEdit* SizeEdit(QLatin1StringView control);
    /// A result, to be read and selected.
    QLabel* ResultLabel(const ResultField& field);
    /// A label whose text the document gives.
    QLabel* CaptionLabel(QLatin1StringView control);
    static QLabel* FixedLabel(const QString& name, const QString& text);
    static QGroupBox* FrameBox(const QString& name, const QString& title);

    void Refresh();
    /// The first header field gets the focus.
    void FocusFirst() { m_inputs.constFirst()->setFocus(); }

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    bool FilterSizeEdit(QLineEdit* edit, QEvent* event);
    void LeaveSizeEdit(QLineEdit* edit);

    TestDocument& m_document;
    Guard m_guard;
    QList<QLineEdit*> m_inputs;
    QList<QLineEdit*> m_sizes;
    QList<QLabel*> m_labels; ///< result fields, and captions that change
    QPlainTextEdit* m_conclusions = nullptr;
};
