#include "framework/document/FieldSet.h"

#include "framework/text/Found.h"

#include <algorithm>
#include <iterator>
#include <utility>

FieldSet::FieldSet(std::vector<Field> fields) : m_fields(std::move(fields)) {}

bool FieldSet::Has(QAnyStringView control) const
{
    return std::ranges::any_of(m_fields, [&](const Field& field) { return control == field.control; });
}

const Field& FieldSet::operator[](QAnyStringView control) const
{
    return Found(m_fields, control, &Field::control);
}

void FieldSet::SetText(QAnyStringView control, const QString& text)
{
    Found(m_fields, control, &Field::control).text = text;
}

void FieldSet::SetVisible(QAnyStringView control, bool visible)
{
    Found(m_fields, control, &Field::control).visible = visible;
}

std::vector<Field> FieldSet::OfKind(FieldKind kind) const
{
    std::vector<Field> fields;
    std::ranges::copy_if(m_fields, std::back_inserter(fields),
                         [kind](const Field& field) { return field.kind == kind; });
    return fields;
}
