#include "stories/ChartStory.h"

#include "stories/ExpectedText.h"

#include <algorithm>

using namespace Qt::StringLiterals;

QList<double> NumbersOf(const QString& words)
{
    QList<double> numbers;
    for (const QString& word : words.split(u' ', Qt::SkipEmptyParts))
        numbers += word.toDouble();
    return numbers;
}

namespace
{

/// "#ff0000"
ChartColour ColourOf(const QString& word)
{
    const QByteArray parts = QByteArray::fromHex(word.sliced(1).toLatin1());
    return {.red = static_cast<std::uint8_t>(parts[0]),
            .green = static_cast<std::uint8_t>(parts[1]),
            .blue = static_cast<std::uint8_t>(parts[2])};
}

} // namespace

bool ChartStory::Make(const QString& verb, const QString& rest)
{
    const QList<double> numbers = NumbersOf(rest);
    ChartAxis& axis = verb.startsWith(u'x') ? m_chart.x : m_chart.y;
    const QString ofAxis = verb.sliced(1);
    if (verb == u"chart") {
        m_chart = ChartData(rest);
    } else if (verb == u"bars") {
        m_chart.type = ChartType::HighLow;
    } else if (verb == u"title") {
        m_chart.title = rest;
    } else if (verb == u"footnote") {
        m_chart.footnote = QString(rest).replace(u" / "_s, u"\r\n"_s);
    } else if (verb == u"legend") {
        m_chart.legend = true;
    } else if (verb == u"x" || verb == u"y") {
        axis.title = rest;
    } else if (ofAxis == u"-scale") {
        axis.scale = ChartScale{numbers[0], numbers[1]};
    } else if (ofAxis == u"-divisions") {
        axis.majorDivisions = rest.toInt();
    } else if (ofAxis == u"-hidden") {
        axis.visible = false;
    } else if (ofAxis == u"-quantity") {
        axis.quantity = rest;
    } else if (verb == u"series") {
        const QString how = rest.section(u':', 0, 0);
        const auto word = [&how](const QString& behind) {
            return how.section(behind + u' ', 1).section(u' ', 0, 0);
        };
        m_chart.series.push_back({.name = rest.section(u": "_s, 1),
                                  .line = how.contains(u"line"),
                                  .marks = how.contains(u"marks"),
                                  .colourGroup = word(u"group"_s).toInt(),
                                  .fitted = how.contains(u"fitted")});
        for (const QString& colour : word(u"colours"_s).split(u',', Qt::SkipEmptyParts))
            m_chart.series.back().colours.push_back(ColourOf(colour));
        if (const QString colour = word(u"fit-colour"_s); !colour.isEmpty())
            m_chart.series.back().fitColour = ColourOf(colour);
    } else if (verb == u"label") {
        m_chart.rowLabels += rest;
    } else if (verb == u"row") {
        m_chart.rows.emplace_back(numbers.begin(), numbers.end());
    } else {
        return false;
    }
    return true;
}

QStringList ChartStory::Changes(const QStringList& before, const QStringList& now)
{
    QStringList changes;
    for (const QString& line : now)
        changes += before.contains(line) ? QStringList() : QStringList(line);
    for (const QString& line : before) { // a line that tells of the same thing takes its place
        const QString thing = line.contains(u": ") ? line.section(u": "_s, 0, 0) : line.section(u' ', 0, 0);
        const bool stays =
            std::ranges::any_of(now, [&thing](const QString& other) { return other.startsWith(thing); });
        changes += stays ? QStringList() : QStringList(u"gone: "_s + line);
    }
    return changes;
}

QString ChartStory::Difference(const QString& file)
{
    QStringList told;
    for (const QString& line : KeptText(file).split(u'\n')) {
        if (line.startsWith(u'>') || line.startsWith(u'#') || line.isEmpty())
            told += line;
        const QString step = line.startsWith(u"> ") ? line.sliced(2) : QString();
        if (!step.isEmpty() && !Make(step.section(u' ', 0, 0), step.section(u' ', 1)))
            told += Do(step.section(u' ', 0, 0), step.section(u' ', 1));
    }
    return DifferenceFrom(file, told.join(u'\n'));
}
