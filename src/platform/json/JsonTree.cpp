#include "platform/json/JsonTree.h"

#include "platform/json/Json.h"

namespace platform {

namespace {

class PrettyPrinter {
public:
    void operator()(std::monostate) { json_ += "null"; }
    void operator()(bool value) { json_ += value ? "true" : "false"; }
    void operator()(const JsonNumber& number) { json_ += prettyJsonNumber(number.text); }
    void operator()(const std::string& text) { appendJsonQuoted(json_, text); }
    void operator()(const JsonTree::Array& elements) {
        appendBlock('[', ']', elements, [this](const JsonTree& element) { append(element); });
    }
    void operator()(const JsonTree::Object& members) {
        appendBlock('{', '}', members, [this](const auto& member) {
            appendJsonQuoted(json_, member.first);
            json_ += ": ";
            append(member.second);
        });
    }

    void append(const JsonTree& tree) { std::visit(*this, tree.value); }
    std::string finish() && { return std::move(json_); }

private:
    template <class Elements, class AppendElement>
    void appendBlock(char open, char close, const Elements& elements, AppendElement appendElement) {
        constexpr std::size_t step = 2;
        json_ += open;
        indent_ += step;
        const char* separator = "\n";
        for (const auto& element : elements) {
            json_ += separator;
            json_.append(indent_, ' ');
            appendElement(element);
            separator = ",\n";
        }
        indent_ -= step;
        if (!elements.empty()) {
            json_ += '\n';
            json_.append(indent_, ' ');
        }
        json_ += close;
    }

    std::string json_;
    std::size_t indent_ = 0;
};

} // namespace

std::string prettyJson(const JsonTree& tree) {
    PrettyPrinter printer;
    printer.append(tree);
    return std::move(printer).finish();
}

} // namespace platform
