#include "completion.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <vector>

namespace orvel_tools {
namespace {

using Words = std::vector<std::string>;

std::vector<const CLI::Option*> options_of(const CLI::App& app) {
    return app.get_options([](const CLI::Option* option) { return option->nonpositional(); });
}

std::vector<const CLI::App*> commands_of(const CLI::App& app) {
    return app.get_subcommands([](const CLI::App*) { return true; });
}

bool takes_value(const CLI::Option& option) { return option.get_items_expected_max() > 0; }
bool takes_file(const CLI::Option& option) { return option.get_type_name() == "FILE"; }
bool is_shell(const CLI::Option& option) { return option.get_single_name() == "completion"; }

/// The names of @p option as they are written: --help, -h.
Words names_of(const CLI::Option& option) {
    Words names;
    for (const std::string& name : option.get_lnames()) names.push_back("--" + name);
    for (const std::string& name : option.get_snames()) names.push_back("-" + name);
    return names;
}

std::string joined(const Words& words) {
    std::string text;
    for (const std::string& word : words) text += (text.empty() ? "" : " ") + word;
    return text;
}

/// @p text in single quotes; with @p brackets as a description of zsh's _arguments.
std::string quoted(const std::string& text, bool brackets = false) {
    std::string result;
    for (const char letter : text) {
        if (letter == '\'') {
            result += "'\\''";
        } else {
            if (brackets && (letter == '[' || letter == ']' || letter == ':')) result += '\\';
            result += letter;
        }
    }
    return result;
}

std::string function_of(const CLI::App& app) {
    std::string name = "_" + app.get_name();
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

Words all_options(const CLI::App& app) {
    Words words;
    for (const CLI::Option* option : options_of(app)) {
        for (const std::string& name : names_of(*option)) words.push_back(name);
    }
    return words;
}

/// The options after which any word may come that is no file.
std::string options_with_words(const CLI::App& app) {
    Words words;
    for (const CLI::Option* option : options_of(app)) {
        if (takes_value(*option) && !takes_file(*option) && !is_shell(*option)) {
            for (const std::string& name : names_of(*option)) words.push_back(name);
        }
    }
    return joined(words);
}

std::string bash_cases(const CLI::App& app, const std::string& indent) {
    std::string words = options_with_words(app), text;
    std::replace(words.begin(), words.end(), ' ', '|');
    if (!words.empty()) text += indent + words + ") compopt +o default; return ;;\n";
    return text;
}

std::string for_bash(const CLI::App& app) {
    const std::string function = function_of(app);
    std::string commands, by_command, values = bash_cases(app, "    ");
    for (const CLI::App* command : commands_of(app)) {
        commands += " " + command->get_name();
        by_command += "        " + command->get_name() + ") options='" +
                      joined(all_options(*command)) + "'; command=$word ;;\n";
        values += bash_cases(*command, "    ");
    }
    std::string text = "# bash completion for " + app.get_name() + "\n" + function + "() {\n";
    text += "    local current=${COMP_WORDS[COMP_CWORD]} word command=\n";
    text += "    local options='" + joined(all_options(app)) + "'\n    COMPREPLY=()\n";
    if (!commands.empty()) {
        text += "    for word in \"${COMP_WORDS[@]:1:COMP_CWORD-1}\"; do\n        case $word in\n" +
                by_command + "        esac\n    done\n";
    }
    text += "    case ${COMP_WORDS[COMP_CWORD-1]} in\n";
    text +=
        "    --completion) COMPREPLY=($(compgen -W 'bash zsh fish' -- \"$current\")); return ;;\n";
    text += values + "    esac\n    case $current in\n";
    text += "    -?*) COMPREPLY=($(compgen -W \"$options\" -- \"$current\")) ;;\n";
    if (!commands.empty()) {
        text += "    *) [ -n \"$command\" ] || COMPREPLY=($(compgen -W '" + commands.substr(1) +
                "' -- \"$current\")) ;;\n";
    }
    return text + "    esac\n}\ncomplete -o default -F " + function + " " + app.get_name() + "\n";
}

std::string zsh_arguments(const CLI::App& app, const std::string& rest) {
    std::string text = "_arguments -s";
    for (const CLI::Option* option : options_of(app)) {
        std::string value;
        if (is_shell(*option)) {
            value = ":shell:(bash zsh fish)";
        } else if (takes_value(*option)) {
            value = ":value:" + std::string(takes_file(*option) ? "_files" : "");
        }
        for (const std::string& name : names_of(*option)) {
            text += " \\\n        '";
            text += name;
            text += "[" + quoted(option->get_description(), true) + "]" + value + "'";
        }
    }
    return text + " \\\n        " + rest + "\n";
}

std::string for_zsh(const CLI::App& app) {
    const std::string function = function_of(app), files = "'*:file:_files'";
    std::string text = "#compdef " + app.get_name() + "\n" + function + "() {\n", choices;
    if (!commands_of(app).empty()) {
        text += "    if (( CURRENT > 2 )); then\n        case $words[2] in\n";
        for (const CLI::App* command : commands_of(app)) {
            text += "        " + command->get_name() + ") shift words; (( CURRENT-- ))\n        " +
                    zsh_arguments(*command, files) + "        return ;;\n";
            choices += command->get_name() + " ";
        }
        text += "        esac\n    fi\n";
        choices = "'1:command:(" + choices.substr(0, choices.size() - 1) + ")'";
    }
    text += "    " + zsh_arguments(app, choices.empty() ? files : choices) + "}\n";
    // Installed, the file is a function by its own name; read by `source`, it makes ours known.
    return text + "if [ \"$funcstack[1]\" = _" + app.get_name() + " ]; then " + function +
           " \"$@\"; else compdef " + function + " " + app.get_name() + "; fi\n";
}

std::string fish_options(const CLI::App& app, const std::string& start) {
    std::string text;
    for (const CLI::Option* option : options_of(app)) {
        text += start;
        for (const std::string& name : option->get_lnames()) text += " -l " + name;
        for (const std::string& name : option->get_snames()) text += " -s " + name;
        if (is_shell(*option)) {
            text += " -x -a 'bash zsh fish'";
        } else if (takes_value(*option)) {
            text += takes_file(*option) ? " -r -F" : " -x";
        }
        text += " -d '" + quoted(option->get_description()) + "'\n";
    }
    return text;
}

std::string for_fish(const CLI::App& app) {
    const std::string start = "complete -c " + app.get_name();
    const std::string first = " -n __fish_use_subcommand",
                      after = " -n '__fish_seen_subcommand_from ";
    const bool commands = !commands_of(app).empty();
    std::string text = "# fish completion for " + app.get_name() + "\n";
    text += fish_options(app, start + (commands ? first : ""));
    for (const CLI::App* command : commands_of(app)) {
        const std::string& name = command->get_name();
        text += start;
        text += first;
        text += " -f -a " + name;
        text += " -d '" + quoted(command->get_description()) + "'\n";
        std::string options = start;
        options += after;
        options += name + "'";
        text += fish_options(*command, options);
    }
    return text;
}

}  // namespace

std::string completion(const CLI::App& app, const std::string& shell) {
    return shell == "bash" ? for_bash(app) : shell == "zsh" ? for_zsh(app) : for_fish(app);
}

}  // namespace orvel_tools
