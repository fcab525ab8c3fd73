// Looking a name up in a table that must have it.
#pragma once

#include <QAnyStringView>
#include <QString>
#include <QtGlobal>

#include <algorithm>
#include <ranges>

/// The entry of this name. member: what holds the names of the entries. A table that lacks the name is a
/// fault of the program, and ends it.
template<std::ranges::range Table, typename Member>
auto& Found(Table&& table, QAnyStringView name, Member member)
{
    const auto found = std::ranges::find_if(
        table, [&](const QAnyStringView& entry) { return entry == name; }, member);
    if (found == std::ranges::end(table))
        qFatal("nothing has the name %s", qPrintable(name.toString()));
    return *found;
}
