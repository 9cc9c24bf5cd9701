#include "platform/CodePage.h"
#include "platform/CommandLine.h"
#include "platform/FilePath.h"
#include "platform/UserLocale.h"
#include "platform/UserTextSize.h"

#include <algorithm>
#include <csignal>
#include <string_view>

#include <langinfo.h>
#include <locale.h>
#include <unistd.h>

namespace railwright {
namespace {

/// A separator as UTF-8. Of the blanks that locales use, only the plain no-break space is in every code page
/// and font.
std::string Separator(nl_item item, locale_t locale) {
    const std::string own = nl_langinfo_l(item, locale);
    const bool isUtf8 = std::string_view(nl_langinfo_l(CODESET, locale)) == "UTF-8";
    const std::string utf8 = isUtf8 ? own : ToUtf8(TextOf(own), Windows1252());
    return utf8 == "\u202F" || utf8 == "\u2009" ? "\u00A0" : utf8;
}

} // namespace

const CodePage& SystemCodePage() {
    return Windows1252();
}

NumberSeparators UserNumberSeparators() {
    const locale_t locale = newlocale(LC_NUMERIC_MASK | LC_CTYPE_MASK, "", locale_t{});
    if (locale == locale_t{})
        return {};
    const NumberSeparators user = {Separator(THOUSEP, locale), Separator(RADIXCHAR, locale)};
    freelocale(locale);
    // The C locale has a point and no separator of thousands.
    return user.Group.empty() && user.Decimal == "." ? NumberSeparators{} : user;
}

// Desktops set the resolution of texts, which the toolkit follows.
double UserTextScale(int, int) {
    return 1;
}

char PathSeparator() {
    return '/';
}

std::vector<std::string> StartCommandLine(int count, char** arguments) {
    (void)std::signal(SIGPIPE, SIG_IGN); // then a write tells that nobody reads any more
    return {arguments + std::min(1, count), arguments + count};
}

bool ErrorsGoToTerminal() {
    return isatty(STDERR_FILENO) == 1;
}

std::string CommandLineText(int count, char** arguments) {
    std::string all;
    for (int i = 1; i < count; ++i)
        all += (all.empty() ? "" : " ") + std::string(arguments[i]);
    return all;
}

} // namespace railwright
