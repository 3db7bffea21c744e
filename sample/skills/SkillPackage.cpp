// The files of a skill.
#include <algorithm>

#include <boost/algorithm/string.hpp>
#include <boost/json.hpp>
#include <boost/uuid/name_generator_sha1.hpp>
#include <boost/uuid/uuid_io.hpp>

#include "Endpoints.h"
#include "library/Text.h"
#include "skills/Skill.h"

namespace sample {

namespace {

constexpr std::string_view requiredFile = "SKILL.md";

/// The path evened out: "./a//b/" is "a/b". One that ends in a slash can only name a directory.
std::string packagePath(const json::object& files, std::string_view given, bool isOfFile) {
    auto names = words(given, "/");
    std::erase(names, ".");
    if (names.empty() || given.starts_with('/') || std::ranges::count(names, "..") > 0) {
        throw RequestError(400, "The path \"" + std::string(given) +
                                    "\" must name something inside the package, without \"..\" or a slash in front.");
    }
    std::string path = boost::algorithm::join(names, "/");
    if (given.ends_with('/') && (isOfFile || files.contains(path))) {
        throw RequestError(409, files.contains(path) ? path + " is a file, not a directory."
                                                     : std::string(given) + " names a directory, not a file.");
    }
    return path;
}

void requireUnprotected(std::string_view path) {
    if (path == requiredFile) {
        throw RequestError(403, "SKILL.md is protected: it can be edited, but not moved, deleted or moved over.");
    }
}

void requireNoDirectory(const json::object& files, const std::string& path) {
    if (files.contains(path + "/")) {
        throw RequestError(409, path + " is a directory.");
    }
}

/// Puts in a file, or a directory where the path ends in a slash, with the directories above it.
void put(json::object& files, const std::string& path, const json::value& content) {
    for (auto end = path.find('/'); end != path.npos; end = path.find('/', end + 1)) {
        if (const std::string above = path.substr(0, end); files.contains(above)) {
            throw RequestError(409, above + " is a file.");
        }
        files[path.substr(0, end + 1)] = nullptr;
    }
    if (!path.ends_with('/')) {
        requireNoDirectory(files, path);
        files[path] = content;
    }
}

/// The paths of the file, or of the directory and all in it.
std::vector<std::string> pathsAt(const json::object& files, const std::string& path) {
    std::vector<std::string> found;
    for (const auto& file : files) {
        if (file.key() == path || file.key().starts_with(path + "/")) {
            found.emplace_back(file.key());
        }
    }
    if (found.empty()) {
        throw RequestError(404, "The package has no " + path + ".");
    }
    return found;
}

void move(json::object& files, const std::string& path, const std::string& to) {
    const auto moving = pathsAt(files, path);
    if ((to + "/").starts_with(path + "/")) {
        throw RequestError(409, path + " cannot move into itself.");
    }
    if (files.contains(to) || files.contains(to + "/")) {
        throw RequestError(409, to + " is in the package already.");
    }
    for (const std::string& from : moving) {
        const json::value content = files.at(from);
        files.stable_erase(from);
        put(files, to + from.substr(path.size()), content);
    }
}

json::string& knownFile(json::object& files, const std::string& path) {
    requireNoDirectory(files, path);
    json::value* file = files.if_contains(path);
    if (!file) {
        throw RequestError(404, "The package has no file " + path + ".");
    }
    return file->as_string();
}

void replaceText(json::string& content, std::string_view from, std::string_view to, bool everywhere) {
    const auto at = from.empty() ? content.npos : content.find(from);
    if (at == content.npos) {
        throw RequestError(409, "The text does not occur in the file. It must match exactly.");
    }
    if (!everywhere && content.find(from, at + 1) != content.npos) {
        throw RequestError(409, "The text occurs more than once in the file.");
    }
    std::string changed(content);
    boost::algorithm::replace_all(changed, from, to);
    content = changed;
}

json::value listPackage(Library& library, const Request& request) {
    std::map<std::string, std::string_view> kinds;
    for (const auto& file : askedFiles(library, request)) {
        const std::string_view path = file.key();
        const bool isDirectory = path.ends_with('/');
        kinds[std::string(path.substr(0, path.size() - isDirectory))] = isDirectory ? "directory" : "file";
    }
    json::array entries;
    for (const auto& [path, kind] : kinds) {
        entries.push_back({{"path", path}, {"kind", kind}});
    }
    return {{"entries", std::move(entries)}};
}

json::value readPackageFile(Library& library, const Request& request) {
    json::object& files = askedFiles(library, request);
    const std::string path = packagePath(files, request.text("path").value_or(""), true);
    return {{"path", path}, {"text", knownFile(files, path)}};
}

json::value validatePackage(Library& library, const Request& request) {
    const json::object& files = askedFiles(library, request);
    return {{"packageHash", packageHash(files)}, {"validationStatus", validationStatus(files)}};
}

json::value editPackage(Library& library, const Request& request) {
    Record& item = askedOwnItem(library, request);
    json::object files = askedFiles(library, request);
    const std::string& operation = request.path.at(5);
    std::string path = packagePath(files, text(request.body, "path"), operation == "write" || operation == "sed");
    if (operation == "write") {
        put(files, path, json::string_view(text(request.body, "text")));
    } else if (operation == "sed") {
        replaceText(knownFile(files, path), text(request.body, "old"), text(request.body, "new"),
                    request.body.at("all").as_bool());
    } else if (operation == "mkdir") {
        put(files, path + "/", nullptr);
    } else if (operation == "move") {
        const std::string to = packagePath(files, text(request.body, "to"), files.contains(path));
        requireUnprotected(path);
        requireUnprotected(to);
        move(files, path, to);
        path = to;
    } else if (operation == "delete") {
        requireUnprotected(path);
        const auto doomed = pathsAt(files, path);
        if (!request.body.at("recursive").as_bool()) {
            requireNoDirectory(files, path);
        }
        for (const std::string& each : doomed) {
            files.stable_erase(each);
        }
    } else {
        throw RequestError(404, "A package knows no " + operation + ".");
    }
    item["files"] = files;
    markRevised(item);
    return {{"path", path}, {"packageHash", packageHash(files)}, {"validationStatus", validationStatus(files)}};
}

} // namespace

json::object& askedFiles(Library& library, const Request& request) {
    json::value* files = askedItem(library, request).if_contains("files");
    if (!files) {
        throw RequestError(400, "A bundle has no package.");
    }
    return files->as_object();
}

std::string skillText(std::string_view name, std::string_view description, std::string_view content) {
    std::string file("---\nname: ");
    file.append(name).append("\ndescription: ").append(description).append("\n---\n\n");
    return file.append(content.empty() ? "Say here what the agent should do." : content).append("\n");
}

std::string_view validationStatus(const json::object& files) {
    const std::string_view file = text(files, requiredFile);
    const bool isValid = file.starts_with("---\nname: ") && file.find("\ndescription: ") != file.npos;
    return isValid ? "valid" : "invalid";
}

std::string packageHash(const json::object& files) {
    const boost::uuids::name_generator_sha1 hash(boost::uuids::ns::oid());
    return boost::algorithm::erase_all_copy(to_string(hash(json::serialize(files))), "-");
}

Endpoints skillPackageEndpoints() {
    static constexpr Endpoint endpoints[] = {
        {"GET", "/api/skill/item/{id}/package", listPackage},
        {"GET", "/api/skill/item/{id}/package/file", readPackageFile},
        {"GET", "/api/skill/item/{id}/package/validate", validatePackage},
        {"POST", "/api/skill/item/{id}/package/{operation}", editPackage},
    };
    return endpoints;
}

} // namespace sample
