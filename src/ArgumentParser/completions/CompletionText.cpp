#include "ArgumentParser/completions/CompletionText.h"

#include <algorithm>

#include "ArgumentParser/completions/CustomCompletion.h"

namespace argumentparser {

std::string backslashed(std::string_view text, std::string_view characters) {
    std::string result;
    for (const char character : text) {
        if (characters.find(character) != std::string_view::npos) {
            result += '\\';
        }
        result += character;
    }
    return result;
}

std::string singleQuoted(std::string_view text) {
    std::string result = "'";
    for (const char character : text) {
        if (character == '\'') {
            result += R"('\'')";
        } else {
            result += character;
        }
    }
    return result + "'";
}

std::string fishQuoted(std::string_view text) {
    return "'" + backslashed(text, R"(\')") + "'";
}

std::string quotedWords(const std::vector<std::string>& words, std::string (*quoted)(std::string_view)) {
    std::string result;
    for (const std::string& word : words) {
        result += (result.empty() ? "" : " ") + quoted(word);
    }
    return result;
}

std::string onOneLine(std::string_view text) {
    std::string result(text);
    for (char& character : result) {
        if (character == '\n' || character == '\r' || character == '\t') {
            character = ' ';
        }
    }
    return result;
}

std::string functionName(const std::vector<std::string>& path) {
    std::string name;
    for (const std::string& word : path) {
        name += "_" + word;
    }
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

std::string candidateRequest(const std::vector<std::string>& path, std::string_view identifier) {
    std::string request(customCompletionWord);
    for (std::size_t i = 1; i < path.size(); ++i) {
        request += " " + path[i];
    }
    return request.append(" -- ").append(identifier);
}

std::string filledIn(std::string_view text,
                     std::initializer_list<std::pair<std::string_view, std::string_view>> values) {
    std::string result(text);
    for (const auto& [key, value] : values) {
        const std::string mark = "@" + std::string(key) + "@";
        for (std::size_t at = 0; (at = result.find(mark, at)) != std::string::npos; at += value.size()) {
            result.replace(at, mark.size(), value);
        }
    }
    return result;
}

} // namespace argumentparser
