#include "cli/CommandLineTool.h"

#include "base/Text.h"
#include "base/Version.h"
#include "cli/Commands.h"
#include "cli/Steps.h"
#include "cli/Suggestion.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cerrno>
#include <new>

namespace railwright {
namespace {

constexpr int Done = 0;
constexpr int Failed = 1;
constexpr int Usage = 2;

/// The parser splits a word such as "[a,b]" into two. This character, which no argument contains, precedes
/// the bracket during parsing.
constexpr char Shield = '\0';

std::vector<std::string> Shielded(std::vector<std::string> words) {
    for (std::string& word : words)
        if (word.starts_with('['))
            word.insert(word.begin(), Shield);
    return words;
}

std::string Unshielded(std::string word) {
    std::erase(word, Shield);
    return word;
}

/// Restores the arguments after parsing.
void Unshield(Arguments& arguments) {
    for (std::vector<std::string>* const words : {&arguments.Files, &arguments.Steps})
        std::transform(words->begin(), words->end(), words->begin(), Unshielded);
    for (std::string* const word :
         {&arguments.Target, &arguments.Separators.Group, &arguments.Separators.Decimal})
        *word = Unshielded(*word);
}

/// Rejects an empty argument.
std::string Required(const std::string& value) {
    return value.empty() ? "it is empty" : "";
}

void AddCommand(CLI::App& app, const Command& command, Arguments& arguments, const Command*& chosen) {
    CLI::App* const added = app.add_subcommand(command.Name, command.Help);
    added->callback([&command, &chosen] { chosen = &command; });
    CLI::Option* const on = command.OnMany
                                ? added->add_option(command.On, arguments.Files)
                                : added->add_option_function<std::string>(
                                      command.On, [&](const std::string& file) { arguments.Files = {file}; });
    on->required()->type_name("");
    if (command.HasSteps) {
        added->add_option("STEP", arguments.Steps, "tool to run, as NAME or NAME=VALUE")->type_name("");
    }
    const std::string example =
        std::string("Example: railwright-cli ") + command.Name + ' ' + command.Example;
    added->footer(example + (command.HasSteps ? "\n" + StepsHelp() : ""));
    if (*command.Target != 0)
        added->add_option("-o", arguments.Target, command.Target)
            ->required()
            ->type_name(command.TargetKind)
            ->check(Required);
    if (command.HasSeparators) {
        added->add_option("--group", arguments.Separators.Group, "what stands between the thousands");
        added->add_option("--decimal", arguments.Separators.Decimal, "what stands before the decimals")
            ->check(Required);
    }
}

/// The parser and its results.
struct CommandLine {
    CLI::App App{"Reports on, draws, checks and changes NoLimits tracks and elements.", "railwright-cli"};
    Arguments Given;
    const Command* Chosen = nullptr;

    CommandLine() {
        App.require_subcommand(1);
        App.allow_windows_style_options(false); // a path may begin with a slash on any system
        App.set_version_flag("--version", "railwright-cli " + std::string(Version),
                             "print the version and exit");
        for (const Command& command : Commands())
            AddCommand(App, command, Given, Chosen);
        App.failure_message([](const CLI::App* app, const CLI::Error& error) {
            const std::vector<std::string> unknown = app->remaining();
            const bool hasCommand = unknown.empty() || !app->get_subcommands().empty();
            return OnOneLine(Unshielded(error.what())) +
                   (hasCommand ? "" : DidYouMean(unknown.front(), Commands())) +
                   "\nRun with --help for more information.\n";
        });
    }
    CommandLine(const CommandLine&) = delete;
    CommandLine& operator=(const CommandLine&) = delete;
};

} // namespace

void DescribeCommandLine(const std::function<void(const CLI::App&)>& describe) {
    describe(CommandLine().App);
}

int RunCommandLineTool(std::vector<std::string> words, std::ostream& out, std::ostream& errors,
                       std::ostream* terminal) {
    CommandLine line;
    const auto warn = [&errors](const std::string& file, std::string_view message) {
        errors << "railwright-cli: " << OnOneLine(file + ": " + std::string(message)) << '\n';
    };
    line.Given.Terminal = terminal;
    line.Given.Warn = warn;
    const Arguments& arguments = line.Given;
    try {
        std::reverse(words.begin(), words.end()); // the parser expects them in reverse
        line.App.parse(Shielded(std::move(words)));
        Unshield(line.Given);
    } catch (const CLI::ParseError& error) {
        if (line.App.exit(error, out, errors) != 0)
            return Usage;
        line.Given.Files.clear(); // help and version need no file
    }

    bool readerIsGone = false;
    const auto require = [&readerIsGone](const std::ostream& written) {
        if (written)
            return;
        readerIsGone = readerIsGone || errno == EPIPE;
        throw OutputFailure{};
    };
    TextOutput output([&](std::string_view piece) {
        errno = 0;
        require(out.write(piece.data(), static_cast<std::streamsize>(piece.size())));
    });
    bool all = true;
    const auto fail = [&](const std::string& file, const std::string& reason) {
        all = false;
        if (line.Chosen->TellsFailures)
            output << OnOneLine(file + ": " + reason) << '\n';
        else
            warn(file, reason);
    };
    try {
        for (const std::string& file : arguments.Files) {
            try {
                line.Chosen->Work(file, arguments, output);
            } catch (const FileFailure& failure) {
                fail(failure.File, failure.Reason);
            } catch (const std::bad_alloc&) {
                fail(file, "there is not enough memory");
            }
        }
        output.Flush();
        errno = 0;
        require(out.flush());
    } catch (const OutputFailure&) {
        if (!readerIsGone) { // a reader that stops early, such as head, is no failure
            warn("standard output", "cannot be written");
            return Failed;
        }
    }
    return all ? Done : Failed;
}

} // namespace railwright
