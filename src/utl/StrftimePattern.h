#pragma once
// The C library describes a locale's dates and times by strftime patterns
// ("%d.%m.%Y"); the applications describe them in their own format language
// ("dd.MM.yyyy"), whose items are "yyyy" "yy" "MMM" "MM" "M" "ddd" "dd" "d"
// "HH" "H" "hh" "h" "mm" "ss" "fff" "tt" and in which every other character
// is a separator. This translates the one into the other.

#include <string>

namespace VxTimeUtl {

// Which items of a pattern to keep. The date part of a combined date-and-time
// pattern is the locale's longer date: it names the weekday and the month.
enum class PatternPart {
  DateAndTime,
  Date,  // year, month, day and weekday
  Time,  // hours, minutes, seconds and the AM/PM marker
};

// What the composite conversions stand for. The locale supplies them
// (nl_langinfo D_FMT, T_FMT, T_FMT_AMPM, D_T_FMT); the defaults are those
// of the "C" locale.
struct StrftimeComposites {
  std::string date = "%m/%d/%y";                     // %x
  std::string time = "%H:%M:%S";                     // %X
  std::string ampmTime = "%I:%M:%S %p";              // %r
  std::string dateAndTime = "%a %b %e %H:%M:%S %Y";  // %c
};

// The pattern in the format language, in UTF-8 (invalid sequences skipped).
//  - %Y yyyy, %y yy, %m MM, %d dd, %e d, %b %h %B MMM, %a %A ddd, %H HH,
//    %k H, %I hh, %l h, %M mm, %S ss, %p %P tt. The flags "-" and "_" take
//    the leading zero away (%-d is d), "0" adds it (%0e is dd); widths and the
//    E and O modifiers are ignored.
//  - %D %F %T %R stand for their fixed patterns, %x %X %r %c for the
//    composites (nested at most four deep); %n and %t are a blank, %% is "%".
//  - Every other conversion (%Z, %z, %j, %C...), every run of ASCII letters
//    in the literal text (it would read as items), every item outside `part`
//    and every second item of a group already present is dropped. The text
//    that joined a dropped item to its neighbours goes with it: a blank and
//    the text glued to the kept side stay ("%d日 %H時" gives "dd日" for the
//    date), a joiner without blanks stays only between two kept items.
//  - Two items that would run together into one ("%b%m") get a blank
//    between them; an "hh" or "h" without "tt" gets " tt" appended, since the
//    twelve-hour clock needs its marker; blanks at both ends are trimmed.
// So the result holds only known items, each group at most once, and other
// characters that are no ASCII letters.
std::string FromStrftimePattern(std::string const & pattern,
                                PatternPart part = PatternPart::DateAndTime,
                                StrftimeComposites const & composites = StrftimeComposites());

}  // namespace VxTimeUtl
