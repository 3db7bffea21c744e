#include "ArgumentParser/completions/CompletionTemplates.h"

namespace argumentparser {

const std::string_view zshHelpers = R"zsh(
# Offers the arguments, as they stand.
__@id@_complete() {
    local -ar completions=("${(@)${(@)@//\\/\\\\}//:/\\:}")
    _describe -V '' completions
}

# Offers what the tool itself computes. Arguments: those that the tool is called with ahead of the command line.
__@id@_custom_complete() {
    local -a completions
    completions=("${(@f)"$("${command_name}" "${@}" "$(__@id@_cursor_index_in_current_word)" \
        "${command_line[@]}" </dev/null 2>/dev/null)"}")
    completions=("${completions[@]:#}")
    ((${#completions})) && _describe -V '' completions
}

# Prints how many characters of the current word stand ahead of the cursor.
__@id@_cursor_index_in_current_word() {
    local -r ahead="${QIPREFIX}${IPREFIX}${PREFIX}"
    printf '%s' "${#ahead}"
}
)zsh";

const std::string_view zshRootStart = R"zsh(    emulate -RL zsh -G
    setopt extendedglob nullglob numericglobsort
    unsetopt aliases banghist

    local -x SAP_SHELL=zsh
    local -x SAP_SHELL_VERSION="${ZSH_VERSION}"

    local -r command_name="${${(Q)words[1]}/#\~\//${HOME}/}"
    local -ar command_line=("${words[@]}")
    local -ir current_word_index="$((CURRENT - 1))"

)zsh";

} // namespace argumentparser
