// The fields of a document by the names of their controls: what each of them shows.
#pragma once

#include <QAnyStringView>
#include <QLatin1StringView>
#include <QString>

#include <vector>

enum class FieldKind {
    Size,    ///< a whole number that sizes the grid
    Result,  ///< what a calculation gave
    Caption, ///< a label whose text or visibility changes
    Notice,  ///< a fixed text that results may bring up; its value is whether it is seen
};

struct Field {
    QLatin1StringView control;
    FieldKind kind = FieldKind::Result;
    QString caption; ///< what stands beside it; for a screen reader, too
    /// Of a result: what a document without results shows; empty for 0 in the number format. Of a size: what
    /// a new document shows.
    QString reset = {};
    QString text = {};
    bool visible = true;
};

/// In the order of the window. A name that the set lacks is a fault of the program, and ends it.
class FieldSet
{
public:
    explicit FieldSet(std::vector<Field> fields);

    bool Has(QAnyStringView control) const;
    const Field& operator[](QAnyStringView control) const;
    void SetText(QAnyStringView control, const QString& text);
    void SetVisible(QAnyStringView control, bool visible);

    const std::vector<Field>& All() const { return m_fields; }
    std::vector<Field> OfKind(FieldKind kind) const;

private:
    std::vector<Field> m_fields;
};
