#include "framework/document/FieldSet.h"

#include <QtGlobal>

#include <algorithm>
#include <iterator>
#include <utility>

FieldSet::FieldSet(std::vector<Field> fields) : m_fields(std::move(fields)) {}

std::size_t FieldSet::Place(QAnyStringView control) const
{
    const auto found =
        std::ranges::find_if(m_fields, [&](const Field& field) { return control == field.control; });
    if (found == m_fields.end())
        qFatal("the document has no field %s", qPrintable(control.toString()));
    return static_cast<std::size_t>(found - m_fields.begin());
}

const Field& FieldSet::operator[](QAnyStringView control) const
{
    return m_fields[Place(control)];
}

void FieldSet::SetText(QAnyStringView control, const QString& text)
{
    m_fields[Place(control)].text = text;
}

void FieldSet::SetVisible(QAnyStringView control, bool visible)
{
    m_fields[Place(control)].visible = visible;
}

std::vector<Field> FieldSet::OfKind(FieldKind kind) const
{
    std::vector<Field> fields;
    std::ranges::copy_if(m_fields, std::back_inserter(fields),
                         [kind](const Field& field) { return field.kind == kind; });
    return fields;
}
