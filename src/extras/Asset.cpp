// `asset`: the images of contexts.
#include "core/inputs/Identifiers.h"
#include "core/output/Style.h"
#include "core/service/CLIError.h"
#include "core/service/ServiceClient.h"
#include "extras/AssetReference.h"
#include "extras/Extras.h"
#include "platform/files/Files.h"
#include "platform/files/PrivateFiles.h"
#include "platform/files/Streams.h"
#include "platform/json/Json.h"
#include "platform/text/Text.h"

namespace orvane {

namespace {

constexpr const char* assetHelp = "Asset UUID or canonical assets.orvane.app URL.";

/// What the bytes of an image begin with, whatever anyone says about them.
std::string_view extensionOf(std::string_view image) {
    if (image.starts_with("\x89PNG")) {
        return "png";
    }
    if (image.starts_with("\xFF\xD8\xFF")) {
        return "jpg";
    }
    if (image.starts_with("GIF8")) {
        return "gif";
    }
    if (image.size() >= 12 && image.starts_with("RIFF") && image.substr(8, 4) == "WEBP") {
        return "webp";
    }
    return "bin";
}

struct AssetGet final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "get", .abstract = "Download an image asset to the system temporary directory."};
    }

    Argument<std::string> asset{*this, "asset", assetHelp};

    void run() const override {
        const std::string id = resolvedAsset(*asset);
        const ServiceReply reply = serviceGet("/api/assets/" + id);
        failOnErrorStatus(reply);
        const platform::PrivateFile file{.directory = platform::temporaryDirectory() + "/orvane-assets",
                                         .name = id + "." + std::string(extensionOf(reply.data))};
        platform::writePrivateFile(file, reply.data);
        platform::writeStandardOutput({file.path(), "\n"});
    }
};

struct AssetUpload final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "upload",
                .abstract = "Upload an image for a context and print its Markdown image block."};
    }

    Argument<std::string> contextId{*this, "context-id", "Context UUID that will own the new image asset."};
    Argument<FilePath> file{*this, "file", "Image file to upload."};

    void validate() const override { validateUUID(*contextId, "context-id"); }

    void run() const override {
        const ServiceReply reply = servicePostJSON("/api/assets", body());
        failOnErrorStatus(reply);
        const auto document = platform::JsonDocument::parseOrThrow(reply.data);
        const auto answer = document.root().object();
        const auto markdown = answer ? answer->text("markdown") : std::nullopt;
        if (!markdown) {
            throw CLIError::invalidInput("Invalid image upload response.");
        }
        platform::writeStandardOutput({shownText(*markdown), "\n"});
    }

private:
    JsonBody body() const {
        JsonBody body;
        body.set("contextId", contextId)
            .setBase64("data", platform::readFileOrThrow(file->bytes))
            .set("originalFilename", platform::repairedUtf8(platform::lastPathComponent(file->bytes)));
        return body;
    }
};

struct Asset final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {
            .commandName = "asset",
            .abstract = "Download or upload context image assets.",
            .ungroupedSubcommands = {CommandType::of<AssetGet>(), CommandType::of<AssetUpload>()},
        };
    }
};

} // namespace

CommandType assetCommand() {
    return CommandType::of<Asset>();
}

} // namespace orvane
