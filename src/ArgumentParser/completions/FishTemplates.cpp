#include "ArgumentParser/completions/CompletionTemplates.h"

namespace argumentparser {

const std::string_view fishHelpers =
    R"fish(# Succeeds if the current word may be a flag or option of a command, none of whose other names was used.
# Arguments: the words of the command; those of them that are certain to be typed first; the names, as argparse has them
# in its variables.
function __@id@_should_offer_completions_for_flags_or_options -a expected_commands first_words
    set -l unparsed_tokens (__@id@_tokens -pc)
    set -e unparsed_tokens[1]
    string match -q -- "$first_words *" "@tool@ $unparsed_tokens "
    or return
    set -l commands
    set -l places
    set -l used_names
    _@id@
    contains -- $expected_commands $commands
    or return
    for name in $argv[3..]
        contains -- _flag_$name $used_names
        and return 1
    end
    return 0
end

# Succeeds if the current word may be a positional of a command.
# Arguments: the words of the command; those of them that are certain to be typed first; the number of the positional,
# from 1 on.
function __@id@_should_offer_completions_for_positional -a expected_commands first_words expected_position
    set -l unparsed_tokens (__@id@_tokens -pc)
    set -e unparsed_tokens[1]
    string match -q -- "$first_words *" "@tool@ $unparsed_tokens "
    or return
    set -l commands
    set -l places
    set -l used_names
    _@id@
    contains -- "$expected_commands $expected_position" $places
end

# Prints the words of the command line, one to a line, as far as the options of commandline tell.
if test (string split -m 1 -f 1 . -- $FISH_VERSION) -gt 3
    function __@id@_tokens
        commandline --tokens-raw $argv
    end
else
    function __@id@_tokens
        commandline -o $argv
    end
end

# Takes the options of a command off unparsed_tokens, and goes on with the subcommand that is left in front. Adds to
# commands those whose options, to places the command and number of those positionals that the current word may be, and
# to used_names the variables that argparse has set; all of them are variables of the caller.
# Arguments: the words of the command; the count of its positionals; "..." if the last one takes any number of values,
# else the name of the default subcommand; the subcommands, an alias as "alias/name"; the specs of its options.
function __@id@_parse_subcommand --no-scope-shadowing -a command_words positional_count rest_or_default children
    set -l subcommands (string split -n ' ' -- $children)
    set -l parsing --ignore-unknown
    if set -q subcommands[1]
        set -a parsing --stop-nonopt
        if test "$unparsed_tokens[1]" = --; and test -z "$rest_or_default"
            return
        end
    end
    set -l specs $argv[5..]
    if string match -q -- '-?*' "$unparsed_tokens[-1]"
        and contains -- (string replace -r '^--?' '' -- "$unparsed_tokens[-1]")=+ $specs
        # The last option lacks its value, which is the current word.
        set -e unparsed_tokens[-1]
    end
    argparse $parsing $specs -- $unparsed_tokens 2>/dev/null
    set -a used_names (set -l --names | string match -- '_flag_*')
    set -l position 1
    while set -q argv[1]
        if test $position -gt $positional_count; and set -q subcommands[1]
            break
        else if not string match -qr -- '^-.' $argv[1]
            set position (math $position + 1)
        end
        set -e argv[1]
    end
    if test "$rest_or_default" = ...; and test $position -gt $positional_count
        set position $positional_count
    end

    if set -q argv[1]
        set -l alias (string match -- "$argv[1]/*" $subcommands)
        set -l child (string replace -r '.*/' '' -- $alias[1] $argv[1])[1]
        set unparsed_tokens $argv
        if contains -- $child $subcommands; and not contains -- -- $unparsed_tokens[1]
            set -e unparsed_tokens[1]
            set -l function _(string replace -a -r '[ -]' _ -- "$command_words $child")
            $function
            return
        end
    else
        set unparsed_tokens
        set -a commands $command_words
        set -a places "$command_words $position"
    end
    if set -q subcommands[1]; and test -n "$rest_or_default"
        set -l function _(string replace -a -r '[ -]' _ -- "$command_words $rest_or_default")
        $function
    end
end

# Prints the directories that the current word, or the value in it, may become.
function __@id@_complete_directories
    __fish_complete_directories (string replace -r -- '^-[^=]*=' '' (commandline -ct)) ''
end

# Prints the files with one of the extensions, and the directories, that the current word, or the value in it, may
# become.
function __@id@_complete_files
    set -l word (string replace -r -- '^-[^=]*=' '' (commandline -ct))
    complete -C "'' $word" | string match -r -- '.*/(?=$|\t)|.*\.(?:'(string join '|' -- (string escape --style=regex -- $argv))')(?=$|\t)'
end

# Prints what the tool itself offers. Arguments: those that the tool is called with ahead of the command line.
function __@id@_custom_completion
    set -lx SAP_SHELL fish
    set -lx SAP_SHELL_VERSION $FISH_VERSION
    set -l tokens (__@id@_tokens -pc)
    set -l word (commandline -ct)
    set -l command (string replace -r -- '^~/' "$HOME/" $tokens[1])
    $command $argv (count $tokens) (string length -- "$word") $tokens "$word" </dev/null 2>/dev/null
end
)fish";

} // namespace argumentparser
