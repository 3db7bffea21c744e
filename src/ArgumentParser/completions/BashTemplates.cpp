#include "ArgumentParser/completions/CompletionTemplates.h"

namespace argumentparser {

/// The helper functions share the variables of the root's function, which are local to it.
const std::string_view bashHelpers = R"bash(#!/bin/bash

# Prints how many characters of the current word stand ahead of the cursor.
__@id@_cursor_index_in_current_word() {
    local remaining="${COMP_LINE::COMP_POINT}"
    local word
    for word in "${COMP_WORDS[@]::COMP_CWORD}"; do
        remaining="${remaining#*"${word}"}"
    done
    remaining="${remaining#"${remaining%%[![:space:]]*}"}"
    printf '%s' "${#remaining}"
}

# Takes the options and values of the current command off the front of unparsed_words, and offers its remaining flags
# and options if that is what the current word begins to be. What is left over stays in unparsed_words.
#
# Sets prev to the option that the current word is a value of, if it is one, and positional_number to the number, from
# 1 on, of the positional that the current word is otherwise.
#
# Arguments: the count of positionals, "-1" if the last one takes any number of values; "subcommands" if the command
# has some. Fails if the current word is a flag or an option.
__@id@_offer_flags_options() {
    local -ir positional_count="${1}"
    local -r children="${2-}"
    local used_names=' ' word name takes

    positional_number=1
    prev=''
    while ((${#unparsed_words[@]} > 0)); do
        word="${unparsed_words[0]}"
        if "${is_behind_terminator}" || [[ "${word}" != -?* ]]; then
            if ((positional_count >= 0 && positional_number > positional_count)) && [[ -n "${children}" ]]; then
                break
            fi
            positional_number+=1
            unparsed_words=("${unparsed_words[@]:1}")
            continue
        fi
        if [[ "${word}" = -- ]]; then
            is_behind_terminator=true
            unparsed_words=("${unparsed_words[@]:1}")
            continue
        fi

        name="${word%%=*}"
        takes=''
        case " ${repeating_flags[*]} ${non_repeating_flags[*]} " in
        *" ${name} "*) takes=nothing ;;
        esac
        case " ${repeating_options[*]} ${non_repeating_options[*]} " in
        *" ${name} "*) takes=value ;;
        esac
        case " ${list_options[*]} " in
        *" ${name} "*) takes=values ;;
        esac
        if [[ -z "${takes}" && -n "${children}" ]]; then
            break
        fi
        unparsed_words=("${unparsed_words[@]:1}")
        if [[ -z "${takes}" && "${word}" = -[!-]?* ]]; then
            # A group of short names.
            for ((i = 1; i < ${#name}; i++)); do
                used_names+="-${name:i:1} "
            done
        fi
        used_names+="${name} "
        if [[ "${takes}" = value* && "${word}" != *=?* ]]; then
            if ((${#unparsed_words[@]} == 0)); then
                prev="${name}"
            elif [[ "${unparsed_words[0]}" != -?* ]]; then
                unparsed_words=("${unparsed_words[@]:1}")
                while [[ "${takes}" = values ]]; do
                    if ((${#unparsed_words[@]} == 0)); then
                        [[ "${cur}" = -* ]] || prev="${name}"
                        break
                    fi
                    [[ "${unparsed_words[0]}" != -?* ]] || break
                    unparsed_words=("${unparsed_words[@]:1}")
                done
            fi
        fi
    done

    if ((${#unparsed_words[@]} > 0)) || "${is_behind_terminator}" || [[ -n "${prev}" || "${cur}" != -* ]]; then
        return 0
    fi
    if [[ "${cur}" = -*=* ]]; then
        case " ${repeating_options[*]} ${non_repeating_options[*]} " in
        *" ${cur%%=*} "*)
            prev="${cur%%=*}"
            value_lead="${prev}="
            cur="${cur#*=}"
            return 0
            ;;
        esac
    fi

    # One of several names of the same input is enough.
    local names
    for names in "${alternative_names[@]}"; do
        for name in ${names}; do
            case "${used_names}" in
            *" ${name} "*)
                used_names+="${names} "
                break
                ;;
            esac
        done
    done
    local offered=''
    for name in "${non_repeating_flags[@]}" "${non_repeating_options[@]}"; do
        case "${used_names}" in
        *" ${name} "*) ;;
        *) offered+=" ${name}" ;;
        esac
    done
    __@id@_add_completions -W "${repeating_flags[*]} ${repeating_options[*]}${offered}"
    return 1
}

# Adds the completions of the current word that compgen generates by the arguments.
__@id@_add_completions() {
    local completion
    while IFS='' read -r completion; do
        [[ -n "${completion}" ]] || continue
        # Of a word that contains one of COMP_WORDBREAKS, only what stands behind that is replaced.
        completion="${value_lead}${completion}"
        COMPREPLY+=("${completion#"${unreplaced}"}")
        if [[ "${1}" != -W || "${completion}" = *[![:alnum:]_./=:@%+-]* ]]; then
            compopt -o filenames 2>/dev/null
        fi
    done <<<"$(compgen "${@}" -- "${cur}")"
    return 0
}

# Adds the lines of a text, none of them expanded, as completions of the current word.
__@id@_add_lines() {
    local line words=''
    while IFS='' read -r line; do
        [[ -z "${line}" ]] || printf -v words '%s%q\n' "${words}" "${line}"
    done <<<"${1}"
    __@id@_add_completions -W "${words}"
}

# Adds what the tool itself offers. Arguments: those that the tool is called with ahead of the command line.
__@id@_custom_complete() {
    __@id@_add_lines "$("${COMP_WORDS[0]/#\~\//${HOME}/}" "${@}" "$(__@id@_cursor_index_in_current_word)" \
        "${COMP_WORDS[@]}" </dev/null 2>/dev/null)"
}
)bash";

/// What only the function of the root does.
const std::string_view bashRootStart =
    R"bash(    # The completions need some of the shell's options set in a certain way; the user's settings come back on return.
    local errexit='set +o errexit'
    [[ "${-}" != *e* ]] || errexit='set -o errexit' # which a command substitution doesn't see
    trap "$(
        shopt -p extglob failglob nocasematch nullglob;shopt -po functrace history noglob nounset posix
    )"$'\n'"${errexit}"$'\ntrap - RETURN' RETURN
    set +o errexit +o functrace +o noglob +o nounset
    shopt -s extglob
    shopt -u failglob nocasematch nullglob
    set +o history +o posix

    local -x SAP_SHELL=bash
    local -x SAP_SHELL_VERSION="${BASH_VERSION}"
    local IFS=$' \t\n'

    local cur="${2}"
    local prev="${3}"
    local unreplaced=''
    local value_lead=''
    local is_behind_terminator=false
    local -i positional_number=0
    local -i i
    local -a repeating_flags=() non_repeating_flags=() repeating_options=() non_repeating_options=()
    local -a list_options=() alternative_names=()
    local -a unparsed_words=()
    COMPREPLY=()

    # Only what has to be quoted is offered as the name of a file: a subcommand is none, even if there is one so called.
    compopt +o filenames 2>/dev/null

    # COMP_WORDS is split at COMP_WORDBREAKS, such as "=" and ":". What no blank separates is one word here.
    local remaining="${COMP_LINE::COMP_POINT}" blanks
    for ((i = 0; i < COMP_CWORD; i++)); do
        blanks="${remaining%%[![:space:]]*}"
        remaining="${remaining#"${blanks}"}"
        remaining="${remaining#"${COMP_WORDS[i]}"}"
        if [[ -n "${blanks}" ]] || ((${#unparsed_words[@]} == 0)); then
            unparsed_words+=("${COMP_WORDS[i]}")
        else
            unparsed_words[${#unparsed_words[@]} - 1]+="${COMP_WORDS[i]}"
        fi
    done
    if [[ "${remaining}" != [[:space:]]* ]]; then
        # The current word goes on where the last one ended.
        unreplaced="${unparsed_words[${#unparsed_words[@]} - 1]}"
        unset "unparsed_words[${#unparsed_words[@]} - 1]"
        remaining="${unreplaced}${remaining}"
    fi
    remaining="${remaining#"${remaining%%[![:space:]]*}"}"
    unreplaced="${remaining%"${2}"}"
    unreplaced="${unreplaced%[\"\']}"
    cur="${unreplaced}${2}"
    unparsed_words=("${unparsed_words[@]:1}")

    # A redirection is none of the tool's words.
    local -r redirection='?(+([0-9])|&)+([<>])?([&|])'
    local -a words=()
    local is_redirection_target=false word
    for word in "${unparsed_words[@]}"; do
        if "${is_redirection_target}"; then
            is_redirection_target=false
        elif [[ "${word}" != ${redirection}* ]]; then
            words+=("${word}")
        elif [[ "${word}" = ${redirection} ]]; then
            is_redirection_target=true
        fi
    done
    unparsed_words=("${words[@]}")
    if ! "${is_redirection_target}" && [[ "${cur}" = ${redirection}* ]]; then
        is_redirection_target=true
        value_lead="${cur%"${cur##${redirection}}"}"
        cur="${cur#"${value_lead}"}"
    fi
    if "${is_redirection_target}"; then
        __@id@_add_completions -f
        return 0
    fi

)bash";

} // namespace argumentparser
