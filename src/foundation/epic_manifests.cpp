#include "foundation/epic_manifests.h"

#include <nlohmann/json.hpp>

#include "system/game_text.h"

namespace marlowick {
namespace {

// Bytes. Real ones have a few thousand.
constexpr std::int64_t kLongestItem = 1 << 20;

constexpr std::size_t kMostItems = 200;
constexpr int kDeepest = 64;

// Takes the events of a JSON text and keeps one value of the outermost object. Every event tells by
// its result whether the reading goes on.
class InstallLocation : public nlohmann::json_sax<nlohmann::json> {
  public:
    std::optional<std::string> found() const { return found_; }

    bool null() override { return true; }
    bool boolean(bool /*value*/) override { return true; }
    bool number_integer(number_integer_t /*value*/) override { return true; }
    bool number_unsigned(number_unsigned_t /*value*/) override { return true; }
    bool number_float(number_float_t /*value*/, const string_t& /*text*/) override { return true; }
    bool binary(binary_t& /*value*/) override { return true; }

    bool string(string_t& value) override {
        if (depth_ == 1 && isWanted_) {
            found_ = value;
        }
        return true;
    }
    bool key(string_t& name) override {
        isWanted_ = depth_ == 1 && isObject_ && name == "InstallLocation";
        return true;
    }

    bool start_object(std::size_t /*count*/) override { return open(true); }
    bool start_array(std::size_t /*count*/) override { return open(false); }
    bool end_object() override { return close(); }
    bool end_array() override { return close(); }

    bool parse_error(std::size_t /*position*/, const std::string& /*token*/,
                     const nlohmann::detail::exception& /*failure*/) override {
        return false;
    }

  private:
    bool open(bool isObject) {
        isObject_ = depth_ == 0 ? isObject : isObject_;
        return ++depth_ <= kDeepest;
    }
    bool close() {
        --depth_;
        isWanted_ = false;
        return true;
    }

    int depth_ = 0;
    bool isObject_ = false;  // the outermost value
    bool isWanted_ = false;  // the value that comes next
    std::optional<std::string> found_;
};

}  // namespace

std::optional<std::string> installLocationOfItem(std::string_view item) {
    InstallLocation reader;
    const bool isJson = nlohmann::json::sax_parse(item.begin(), item.end(), &reader);
    return isJson ? reader.found() : std::nullopt;
}

std::vector<Path> epicInstalls(const Path& programData, BoundedLook& look) {
    std::vector<Path> installs;
    if (programData.empty()) {
        return installs;
    }
    const Path folder = programData + "\\Epic\\EpicGamesLauncher\\Data\\Manifests";
    for (const std::string& name : look.names(folder, kMostItems)) {
        const std::optional<std::string> item =
            matchesMask(name, "*.item") ? look.read(Path(folder.text() + "\\" + name), kLongestItem)
                                        : std::nullopt;
        const std::optional<std::string> location =
            item ? installLocationOfItem(*item) : std::nullopt;
        const std::optional<Path> install =
            location ? look.folder(pathOfText(*location)) : std::nullopt;
        if (install) {
            installs.push_back(*install);
        }
    }
    return installs;
}

}  // namespace marlowick
