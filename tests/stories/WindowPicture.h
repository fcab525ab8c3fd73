// A window as text: what stands in it, a line a control, in the order in which it is laid out.
#pragma once

#include <QList>
#include <QString>
#include <QWidget>

/// A line of a picture. Its key says which control it is: role and name, below those that it stands in.
struct PictureLine {
    QString key;
    QString text; ///< a text of several lines stands below its control
    int depth = 0;
};

using Picture = QList<PictureLine>;

/// A text in quotation marks, on one line.
QString Quoted(QString text);

/// A text below the control that shows it, each line behind a bar.
QString BarredLines(const QString& text);

/// What a user sees and a screen reader says: role, name, text with its access key, where it stands in its
/// grid, state, tool tip, place in the order of Tab. A text that its control is too small for is marked CUT,
/// a control that lies on another one OVER. A null widget gives an empty picture.
Picture PictureOf(const QWidget* widget);

/// The lines of `after` that are new or say something else than in `before`, and "gone: " before those that
/// are no longer there. Lines inside one that is new are indented.
QStringList Changes(const Picture& before, const Picture& after);
