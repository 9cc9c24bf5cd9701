// Fills in templates about railwright-cli: describe TEMPLATE OUTPUT. Each %NAME% in the template is replaced
// by a list of commands or steps, in the form that the manual or a shell needs. The lists are generated from
// the program's own tables.
#include "base/Version.h"
#include "cli/CommandLineTool.h"
#include "cli/Steps.h"

#include <CLI/CLI.hpp>

#include <cstdlib>
#include <fstream>
#include <functional>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

namespace {

using railwright::StepDescription;

/// Visits each command, or each option that is not a positional argument.
void ForEachCommand(const CLI::App& app, const std::function<void(const CLI::App&)>& tell) {
    for (const CLI::App* const command : app.get_subcommands([](const CLI::App*) { return true; }))
        tell(*command);
}

void ForEachOption(const CLI::App& app, const std::function<void(const CLI::Option&)>& tell) {
    for (const CLI::Option* const option : app.get_options())
        if (option->nonpositional())
            tell(*option);
}

/// @return the names of an option, with their hyphens.
std::vector<std::string> NamesOf(const CLI::Option& option) {
    std::vector<std::string> names;
    for (const std::string& name : option.get_snames())
        names.push_back("-" + name);
    for (const std::string& name : option.get_lnames())
        names.push_back("--" + name);
    return names;
}

bool TakesValue(const CLI::Option& option) {
    return option.get_items_expected_max() > 0;
}

/// @return the command's argument, as named in the help: FILE or FOLDER.
std::string On(const CLI::App& command) {
    for (const CLI::Option* const option : command.get_options())
        if (option->get_positional() && option->get_name() != "STEP")
            return option->get_name();
    return "";
}

/// @return the kind of value of option -o, FILE or FOLDER, or an empty string if the command lacks it.
std::string Target(const CLI::App& command) {
    const CLI::Option* const option = command.get_option_no_throw("-o");
    return option == nullptr ? "" : option->get_type_name();
}

bool HasSteps(const CLI::App& command) {
    return command.get_option_no_throw("STEP") != nullptr;
}

/// @return `text` with a backslash before each of `characters`.
std::string Escaped(std::string_view text, std::string_view characters) {
    std::string escaped;
    for (const char one : text) {
        if (characters.find(one) != std::string_view::npos)
            escaped += '\\';
        escaped += one;
    }
    return escaped;
}

/// @return the text as a quoted word for a shell.
std::string Quoted(std::string_view text) {
    std::string quoted = "'";
    for (const char one : text)
        quoted += one == '\'' ? "'\\''" : std::string(1, one);
    return quoted + "'";
}

/// @return a help text as a sentence.
std::string Sentence(std::string text) {
    text[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(text[0])));
    return Escaped(text, "-\\") + ".\n";
}

/// @return the words that complete a step, such as "move=" and "mirror=east-west".
std::vector<std::string> Completions(const StepDescription& step) {
    const std::string start = std::string(step.Name) + (step.Value.empty() ? "" : "=");
    std::vector<std::string> all;
    for (const std::string_view word : step.Words)
        all.push_back(start + std::string(word));
    if (all.empty())
        all.push_back(start);
    return all;
}

std::string ManualOptions(const CLI::App& app) {
    std::string text;
    ForEachOption(app, [&](const CLI::Option& option) {
        std::string names;
        for (const std::string& name : NamesOf(option))
            names += (names.empty() ? "\\fB" : "\\fR, \\fB") + Escaped(name, "-");
        text += ".TP\n" + names + "\\fR";
        if (TakesValue(option))
            text += " \\fI" + option.get_type_name() + "\\fR";
        text += "\n" + Sentence(option.get_description());
    });
    return text;
}

std::string ManualCommands(const CLI::App& app) {
    std::string text;
    ForEachCommand(app, [&](const CLI::App& command) {
        text += ".TP\n\\fB" + command.get_name() + "\\fR";
        for (const CLI::Option* const option : command.get_options())
            if (option->get_positional())
                text += " \\fI" + option->get_name() + "\\fR" + (option->get_expected_max() > 1 ? "..." : "");
        if (!Target(command).empty())
            text += " \\fB\\-o\\fR \\fI" + Target(command) + "\\fR";
        text += "\n" + Sentence(command.get_description());
        std::string options;
        ForEachOption(command, [&](const CLI::Option& option) {
            if (TakesValue(option) && !option.get_required())
                options += ".TP\n\\fB" + Escaped(NamesOf(option)[0], "-") + "\\fR \\fI" +
                           option.get_type_name() + "\\fR\n" + Sentence(option.get_description());
        });
        if (!options.empty())
            text += ".RS\n" + options + ".RE\n";
    });
    return text;
}

std::string ManualSteps(const std::vector<StepDescription>& steps) {
    std::string text;
    for (const StepDescription& step : steps) {
        text += ".TP\n\\fB" + Escaped(step.Name, "-");
        if (!step.Value.empty())
            text += "=\\fI" + Escaped(step.Value, "-");
        text += "\\fR\n" + Sentence(std::string(step.Help));
        std::string words;
        for (const std::string_view word : step.Words)
            words += (words.empty() ? "One of \\fB" : "\\fR, \\fB") + Escaped(word, "-");
        if (!words.empty())
            text += words + "\\fR.\n";
    }
    return text;
}

std::string BashCommands(const CLI::App& app) {
    std::string text;
    ForEachCommand(app, [&](const CLI::App& command) {
        std::string options;
        std::string texts;
        ForEachOption(command, [&](const CLI::Option& option) {
            for (const std::string& name : NamesOf(option)) {
                options += (options.empty() ? "" : " ") + name;
                if (TakesValue(option) && name != "-o")
                    texts += " " + name;
            }
        });
        text += "    " + command.get_name() + ") options=" + Quoted(options) +
                " texts=" + Quoted(texts + " ") + " on=" + On(command) + " target=" + Target(command) +
                " steps=" + (HasSteps(command) ? "yes" : "") + " ;;\n";
    });
    return text;
}

/// @return the names of the commands and options, separated by blanks.
std::string Words(const CLI::App& app) {
    std::string text;
    ForEachCommand(app, [&](const CLI::App& command) { text += command.get_name() + " "; });
    ForEachOption(app, [&](const CLI::Option& option) { text += NamesOf(option).back() + " "; });
    return text.substr(0, text.size() - 1);
}

std::string Words(const std::vector<StepDescription>& steps) {
    std::string text;
    for (const StepDescription& step : steps)
        for (const std::string& word : Completions(step))
            text += (text.empty() ? "" : " ") + word;
    return text;
}

std::string ZshCommands(const CLI::App& app) {
    std::string text;
    ForEachCommand(app, [&](const CLI::App& command) {
        text += "        " + Quoted(command.get_name() + ":" + command.get_description()) + "\n";
    });
    return text;
}

/// @return how zsh completes a value of this kind.
std::string ZshValue(const std::string& kind) {
    return kind == "FILE"     ? ":file:_railwright_cli_files"
           : kind == "FOLDER" ? ":folder:_files -/"
                              : ":text: "; // has no completion
}

std::string ZshArguments(const CLI::App& app) {
    std::string text;
    ForEachCommand(app, [&](const CLI::App& command) {
        text += "    " + command.get_name() + ") _arguments -S";
        ForEachOption(command, [&](const CLI::Option& option) {
            const std::string help = "[" + Escaped(option.get_description(), "[]:") + "]";
            for (const std::string& name : NamesOf(option))
                text += " \\\n        " +
                        Quoted(name + help + (TakesValue(option) ? ZshValue(option.get_type_name()) : ""));
        });
        const bool many = command.get_option(On(command))->get_expected_max() > 1;
        text += " \\\n        " + Quoted((many ? "*" : "1") + ZshValue(On(command)));
        if (HasSteps(command))
            text += " \\\n        '*:step:_railwright_cli_steps'";
        text += " ;;\n";
    });
    return text;
}

std::string FishCommands(const CLI::App& app) {
    const auto names = [](const CLI::Option& option) {
        std::string text;
        for (const std::string& name : option.get_snames())
            text += " -s " + name;
        for (const std::string& name : option.get_lnames())
            text += " -l " + name;
        return text + " -d " + Quoted(option.get_description());
    };
    const auto values = [](const std::string& kind) -> std::string {
        return kind == "FILE"     ? " -k -a '(__fish_complete_suffix .nltrack .nlelem)'"
               : kind == "FOLDER" ? " -a '(__fish_complete_directories)'"
                                  : "";
    };
    std::string text;
    const auto line = [&](const std::string& command, const std::string& rest) {
        text +=
            "complete -c railwright-cli -n " +
            (command.empty() ? "__fish_use_subcommand" : Quoted("__fish_seen_subcommand_from " + command)) +
            rest + "\n";
    };
    ForEachOption(app, [&](const CLI::Option& option) { line("", names(option)); });
    ForEachCommand(app, [&](const CLI::App& command) {
        line("", " -a " + command.get_name() + " -d " + Quoted(command.get_description()));
        ForEachOption(command, [&](const CLI::Option& option) {
            line(command.get_name(), (TakesValue(option) ? " -x" : "") + names(option) +
                                         (TakesValue(option) ? values(option.get_type_name()) : ""));
        });
        line(command.get_name(), values(On(command)));
        if (HasSteps(command))
            line(command.get_name(), " -a '(__railwright_cli_steps)'");
    });
    return text;
}

std::string FishSteps(const std::vector<StepDescription>& steps) {
    std::string text;
    for (const StepDescription& step : steps)
        for (const std::string& word : Completions(step))
            text += "        echo " + Quoted(word + "\t" + std::string(step.Help)) + "\n";
    return text;
}

std::string Filled(std::string text, const CLI::App& app) {
    const std::vector<StepDescription> track = railwright::TrackStepDescriptions();
    const std::vector<StepDescription> element = railwright::ElementStepDescriptions();
    std::string lists;
    for (const StepDescription& step : track)
        if (step.IsList)
            lists += (lists.empty() ? "" : "|") + std::string(step.Name);
    const std::pair<const char*, std::string> lists_by_name[] = {
        {"%VERSION%", std::string(railwright::Version)},
        {"%LIST_STEPS%", lists},
        {"%WORDS%", Words(app)},
        {"%TRACK_WORDS%", Words(track)},
        {"%ELEMENT_WORDS%", Words(element)},
        {"%MANUAL_COMMANDS%", ManualCommands(app)},
        {"%MANUAL_OPTIONS%", ManualOptions(app)},
        {"%MANUAL_TRACK_STEPS%", ManualSteps(track)},
        {"%MANUAL_ELEMENT_STEPS%", ManualSteps(element)},
        {"%BASH_COMMANDS%", BashCommands(app)},
        {"%ZSH_COMMANDS%", ZshCommands(app)},
        {"%ZSH_ARGUMENTS%", ZshArguments(app)},
        {"%FISH_COMMANDS%", FishCommands(app)},
        {"%FISH_TRACK_STEPS%", FishSteps(track)},
        {"%FISH_ELEMENT_STEPS%", FishSteps(element)},
    };
    for (const auto& [name, list] : lists_by_name) {
        const bool isLines = list.ends_with('\n');
        const std::string wanted = name + std::string(isLines ? "\n" : "");
        for (std::size_t at = text.find(wanted); at != std::string::npos;
             at = text.find(wanted, at + list.size()))
            text.replace(at, wanted.size(), list);
    }
    return text;
}

} // namespace

int main(int count, char** words) {
    if (count != 3)
        return EXIT_FAILURE;
    std::ifstream in(words[1], std::ios::binary);
    const std::string text(std::istreambuf_iterator<char>(in), {});
    std::ofstream out(words[2], std::ios::binary);
    railwright::DescribeCommandLine([&](const CLI::App& app) { out << Filled(text, app); });
    return in && out.flush() ? EXIT_SUCCESS : EXIT_FAILURE;
}
