// The files of a skill.
#include <algorithm>

#include <boost/algorithm/string.hpp>
#include <boost/json.hpp>
#include <boost/uuid/name_generator_sha1.hpp>
#include <boost/uuid/uuid_io.hpp>

#include "handlers.h"
#include "skill.h"
#include "text.h"

namespace sample {

namespace {

constexpr std::string_view requiredFile = "SKILL.md";

/// The path of a file or directory that the body names under `key`, free of what would lead out of the package.
std::string requestedPath(const Request& request, std::string_view key = "path") {
    const std::string_view given = text(request.body, key);
    const auto names = words(given, "/");
    if (names.empty() || given.starts_with('/') || std::ranges::count(names, "..") > 0) {
        throw RequestError(400, "The " + std::string(key) + " must be a path inside the package.");
    }
    return boost::algorithm::join(names, "/");
}

std::string unprotectedPath(const Request& request) {
    std::string path = requestedPath(request);
    if (path == requiredFile) {
        throw RequestError(403, "SKILL.md is protected: a skill cannot be without it.");
    }
    return path;
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

json::string& knownFile(json::object& files, const std::string& path) {
    json::value* file = files.if_contains(path);
    if (!file) {
        throw RequestError(404, "The package has no file " + path + ".");
    }
    return file->as_string();
}

/// Ends an edit, with the answer to it.
json::value edited(Record& item, const std::string& path) {
    markRevised(item);
    const json::object& files = item.at("files").as_object();
    return {{"path", path}, {"packageHash", packageHash(files)}, {"validationStatus", validationStatus(files)}};
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

json::value listPackage(Library& library, const Request& request) {
    std::map<std::string, std::string_view> kinds;
    for (const auto& file : askedFiles(library, request)) {
        const std::string_view path = file.key();
        for (auto end = path.find('/'); end != path.npos; end = path.find('/', end + 1)) {
            kinds[std::string(path.substr(0, end))] = "directory";
        }
        if (!path.ends_with('/')) {
            kinds[std::string(path)] = "file";
        }
    }
    json::array entries;
    for (const auto& [path, kind] : kinds) {
        entries.push_back({{"path", path}, {"kind", kind}});
    }
    return {{"entries", std::move(entries)}};
}

json::value readPackageFile(Library& library, const Request& request) {
    const std::string path = request.text("path").value_or("");
    return {{"path", path}, {"text", knownFile(askedFiles(library, request), path)}};
}

json::value validatePackage(Library& library, const Request& request) {
    const json::object& files = askedFiles(library, request);
    return {{"packageHash", packageHash(files)}, {"validationStatus", validationStatus(files)}};
}

json::value editPackage(Library& library, const Request& request) {
    Record& item = askedOwnItem(library, request);
    json::object& files = askedFiles(library, request);
    const std::string& operation = request.path.at(5);
    std::string path = requestedPath(request);
    if (operation == "write") {
        if (files.contains(path + "/")) {
            throw RequestError(409, path + " is a directory.");
        }
        files[path] = text(request.body, "text");
    } else if (operation == "sed") {
        replaceText(knownFile(files, path), text(request.body, "old"), text(request.body, "new"),
                    request.body.at("all").as_bool());
    } else if (operation == "mkdir") {
        files[path + "/"] = nullptr;
    } else if (operation == "move") {
        const std::string to = requestedPath(request, "to");
        for (const std::string& from : pathsAt(files, unprotectedPath(request))) {
            const json::value moved = files.at(from);
            files.stable_erase(from);
            files[to + from.substr(path.size())] = moved;
        }
        path = to;
    } else if (operation == "delete") {
        const auto doomed = pathsAt(files, unprotectedPath(request));
        if (doomed != std::vector{path} && !request.body.at("recursive").as_bool()) {
            throw RequestError(409, path + " is a directory.");
        }
        for (const std::string& each : doomed) {
            files.stable_erase(each);
        }
    } else {
        throw RequestError(404, "A package knows no " + operation + ".");
    }
    return edited(item, path);
}

} // namespace sample
