#include "CommandLine.hpp"

namespace velmo {
namespace {

std::string branch(const std::string& pattern, const std::string& result) {
    return "        " + pattern + ") " + result + " ;;\n";
}

/// Returns the assignments for a parameter, with options of compgen. Empty for a flag.
std::string actionOf(const Parameter& parameter) {
    switch (parameter.kind) {
    case Parameter::Kind::text:
        return "action=none";
    case Parameter::Kind::file:
        return "action=-f";
    case Parameter::Kind::folder:
        return "action=-d";
    case Parameter::Kind::choice:
        return "action=-W words=" + quoted(join(parameter.choices, " "));
    case Parameter::Kind::flag:
        break;
    }
    return "";
}

std::vector<std::string> namesOf(const std::vector<Parameter>& options) {
    std::vector<std::string> names;
    for (const Parameter& option : options)
        names.insert(names.end(), option.names.begin(), option.names.end());
    return names;
}

std::string branchesOf(const Command& command) {
    std::string text = branch(quoted(command.name + " -"),
                              "action=-W words=" + quoted(join(namesOf(command.options), " ")));
    for (const Parameter& option : command.options)
        if (option.kind != Parameter::Kind::flag)
            for (const std::string& name : option.names)
                text += branch(quoted(command.name + " " + name), actionOf(option));
    std::size_t position = 0;
    for (const Parameter& argument : command.arguments)
        text +=
            branch(argument.isRepeated ? quoted(command.name + " ") + "[1-9]*"
                                       : quoted(command.name + " " + std::to_string(++position)),
                   actionOf(argument));
    return text;
}

constexpr const char* function = R"(
_velmo() {
    local command=${COMP_WORDS[1]} word=${COMP_WORDS[COMP_CWORD]} action words
    local position=1 pending='' index each
    for ((index = 2; index < COMP_CWORD; ++index)); do
        each=${COMP_WORDS[index]}
        if [ "$each" = = ]; then # bash splits --option=value into three words
            continue
        elif [ -n "$pending" ]; then
            pending=''
        elif [ "${each:0:1}" = - ]; then
            _velmo_parameter "$command $each"
            pending=$action
        else
            ((++position))
        fi
    done
    [ "$word" != = ] || word=''
    if [ "$COMP_CWORD" = 1 ]; then
        _velmo_parameter velmo
    elif [ -z "$pending" ] && [ "${word:0:1}" = - ]; then
        _velmo_parameter "$command -"
    elif [ -z "$pending" ]; then
        _velmo_parameter "$command $position"
    fi
    case $action in
        -W) mapfile -t COMPREPLY < <(compgen -W "$words" -- "$word") ;;
        -f | -d)
            compopt -o filenames 2>/dev/null
            mapfile -t COMPREPLY < <(compgen "$action" -- "$word") # expands no "*" in a name
            ;;
        *) COMPREPLY=() ;;
    esac
}
complete -F _velmo velmo
)";

} // namespace

std::string bashCompletion(const CommandLine& definition) {
    std::vector<std::string> words = namesOf(definition.program.options);
    std::string branches;
    for (const Command& command : definition.commands) {
        words.push_back(command.name);
        branches += branchesOf(command);
    }
    return "# Completions of velmo for bash, made from the definition of its command line.\n\n"
           "# Sets what is completed as the value of an option, or as the argument with a number.\n"
           "_velmo_parameter() {\n"
           "    action='' words=''\n"
           "    case $1 in\n" +
           branch("velmo", "action=-W words=" + quoted(join(words, " "))) + branches +
           "    esac\n}\n" + function;
}

} // namespace velmo
