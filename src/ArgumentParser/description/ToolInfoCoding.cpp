#include "ArgumentParser/description/ToolInfo.h"

#include <stdexcept>
#include <utility>

#include "platform/json/Json.h"
#include "platform/json/JsonTree.h"

namespace argumentparser {

namespace {

using platform::JsonObject;
using platform::JsonTree;

/// `Candidate` is the record, to be written from or to be read into.
template <class Candidate, class Record>
concept Is = std::same_as<std::remove_const_t<Candidate>, Record>;

// Each record's members, for writing as for reading: `one` is always there, `ifAny` only when it holds something.

template <class Members>
void visit(Is<NameInfoV0> auto& name, Members& members) {
    members.one("kind", name.kind);
    members.one("name", name.name);
}

template <class Members>
void visit(Is<ArgumentInfoV0> auto& argument, Members& members) {
    members.one("kind", argument.kind);
    members.one("shouldDisplay", argument.shouldDisplay);
    members.ifAny("sectionTitle", argument.sectionTitle);
    members.one("isOptional", argument.isOptional);
    members.one("isRepeating", argument.isRepeating);
    members.one("parsingStrategy", argument.parsingStrategy);
    members.ifAny("names", argument.names);
    members.ifAny("preferredName", argument.preferredName);
    members.ifAny("valueName", argument.valueName);
    members.ifAny("defaultValue", argument.defaultValue);
    members.ifAny("allValues", argument.allValues);
    members.ifAny("allValueDescriptions", argument.allValueDescriptions);
    members.ifAny("completionKind", argument.completionKind);
    members.ifAny("abstract", argument.abstract);
    members.ifAny("discussion", argument.discussion);
}

template <class Members>
void visit(Is<CommandInfoV0> auto& command, Members& members) {
    members.ifAny("superCommands", command.superCommands);
    members.one("shouldDisplay", command.shouldDisplay);
    members.one("commandName", command.commandName);
    members.ifAny("aliases", command.aliases);
    members.ifAny("abstract", command.abstract);
    members.ifAny("discussion", command.discussion);
    members.ifAny("defaultSubcommand", command.defaultSubcommand);
    members.ifAny("subcommands", command.subcommands);
    members.ifAny("arguments", command.arguments);
}

template <class Members>
void visit(Is<ToolInfoHeader> auto& header, Members& members) {
    members.one("serializationVersion", header.serializationVersion);
}

template <class Members>
void visit(Is<ToolInfoV0> auto& info, Members& members) {
    members.one("serializationVersion", info.serializationVersion);
    members.one("command", info.command);
}

/// What a kind of completion has, below its key.
template <class Members>
void visit(Is<CompletionKindV0> auto& completion, Members& members) {
    members.ifAny("values", completion.values);
    members.ifAny("extensions", completion.extensions);
    members.ifAny("command", completion.command);
}

template <class Record>
JsonTree treeOf(const Record& record);

JsonTree treeOf(bool value) {
    return {value};
}

JsonTree treeOf(int value) {
    return {platform::JsonNumber{std::to_string(value)}};
}

JsonTree treeOf(const std::string& text) {
    return {text};
}

JsonTree treeOf(const std::map<std::string, std::string>& texts) {
    JsonTree::Object object;
    for (const auto& [key, text] : texts) {
        object.emplace(key, treeOf(text));
    }
    return {std::move(object)};
}

template <class Element>
JsonTree treeOf(const std::vector<Element>& elements) {
    JsonTree::Array array;
    for (const Element& element : elements) {
        array.push_back(treeOf(element));
    }
    return {std::move(array)};
}

template <class Value>
JsonTree treeOf(const std::optional<Value>& value) {
    return treeOf(*value);
}

struct Writer {
    JsonTree::Object object = {};

    template <class Value>
    void one(const char* key, const Value& value) {
        object.emplace(key, treeOf(value));
    }
    template <class Value>
    void ifAny(const char* key, const Value& value) {
        if (value != Value()) {
            one(key, value);
        }
    }
};

template <class Record>
JsonTree treeOf(const Record& record) {
    Writer members;
    visit(record, members);
    if constexpr (std::same_as<Record, CompletionKindV0>) {
        return {JsonTree::Object{{record.kind, {std::move(members.object)}}}};
    } else {
        return {std::move(members.object)};
    }
}

template <class Record>
Record recordFrom(const JsonObject& object);

struct Reader {
    const JsonObject& object;

    template <class Value>
    void one(const char* key, Value& value) const {
        if (!read(key, value)) {
            throw std::runtime_error("The key \"" + std::string(key) +
                                     "\" is missing, or its value is of another type.");
        }
    }
    template <class Value>
    void ifAny(const char* key, Value& value) const {
        if (object.value(key)) {
            one(key, value);
        }
    }

private:
    /// Whether there was a value of that type, which is `value` then.
    template <class Found, class Value>
    static bool take(const std::optional<Found>& found, Value& value) {
        if (found) {
            value = Value(*found);
        }
        return found.has_value();
    }

    bool read(const char* key, bool& value) const { return take(object.boolean(key), value); }
    bool read(const char* key, std::string& value) const { return take(object.text(key), value); }

    bool read(const char* key, int& value) const {
        const std::optional<std::int64_t> number = object.integer(key);
        return number && std::in_range<int>(*number) && take(number, value);
    }

    bool read(const char* key, std::vector<std::string>& values) const {
        const auto texts = object.texts(key);
        if (texts) {
            values.assign(texts->begin(), texts->end());
        }
        return texts.has_value();
    }

    bool read(const char* key, std::map<std::string, std::string>& values) const {
        const std::optional<JsonObject> found = object.object(key);
        if (found) {
            for (const auto& member : found->members()) {
                const std::string name(member.first);
                Reader{*found}.one(name.c_str(), values[name]);
            }
        }
        return found.has_value();
    }

    template <class Value>
    bool read(const char* key, std::optional<Value>& value) const {
        return read(key, value.emplace());
    }

    template <class Record>
    bool read(const char* key, std::vector<Record>& records) const {
        const auto found = object.objects(key);
        if (found) {
            for (const JsonObject& element : *found) {
                records.push_back(recordFrom<Record>(element));
            }
        }
        return found.has_value();
    }

    template <class Record>
    bool read(const char* key, Record& record) const {
        const std::optional<JsonObject> found = object.object(key);
        if (found) {
            record = recordFrom<Record>(*found);
        }
        return found.has_value();
    }
};

template <class Record>
Record recordFrom(const JsonObject& object) {
    Record record;
    Reader members{object};
    visit(record, members);
    return record;
}

template <>
CompletionKindV0 recordFrom(const JsonObject& object) {
    const auto kinds = object.members();
    if (kinds.size() != 1) {
        throw std::runtime_error("Invalid number of keys found, expected one.");
    }
    CompletionKindV0 completion;
    completion.kind = kinds.begin()->first;
    if (const std::optional<JsonObject> fields = kinds.begin()->second.object()) {
        Reader members{*fields};
        visit(completion, members);
    }
    return completion;
}

template <class Record>
Record decoded(std::string_view json) {
    const auto document = platform::JsonDocument::parseObject(json);
    if (!document) {
        throw std::runtime_error("The description is not a JSON object.");
    }
    return recordFrom<Record>(document->object());
}

} // namespace

std::string encoded(const ToolInfoV0& info) {
    return platform::prettyJson(treeOf(info));
}

ToolInfoHeader decodedToolInfoHeader(std::string_view json) {
    return decoded<ToolInfoHeader>(json);
}

ToolInfoV0 decodedToolInfo(std::string_view json) {
    return decoded<ToolInfoV0>(json);
}

} // namespace argumentparser
