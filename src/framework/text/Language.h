// The two languages of what the program writes: conclusions, charts and reports.
#pragma once

enum class Language { Italian, English };

/// One thing in each of the two languages.
template<typename Thing>
struct InBoth {
    Thing it;
    Thing en;

    const Thing& operator[](Language language) const { return language == Language::English ? en : it; }
    Thing& operator[](Language language) { return language == Language::English ? en : it; }
    friend bool operator==(const InBoth&, const InBoth&) = default;
};
