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

/// Returns a separator as UTF-8. Replaces narrow spaces by the no-break space, the only one in every code
/// page and font.
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
    // The C locale has no thousands separator.
    return user.Group.empty() && user.Decimal == "." ? NumberSeparators{} : user;
}

// Desktops set the text resolution, which the toolkit follows.
double UserTextScale(int, int) {
    return 1;
}

char PathSeparator() {
    return '/';
}

std::vector<std::string> StartCommandLine(int count, char** arguments) {
    (void)std::signal(SIGPIPE, SIG_IGN); // so that writing to a closed pipe returns an error
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
