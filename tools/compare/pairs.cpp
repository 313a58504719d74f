#include "compare/pairs.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <map>
#include <system_error>

#include "names.h"

namespace orvel_tools {
namespace {

namespace fs = std::filesystem;

using Found = std::map<std::string, std::string>;  // the names of pictures and their paths

std::string line_about(const fs::path& path, const std::string& reason) {
    return shown_name(path.native()) + ": " + reason;
}

bool is_picture(const fs::path& path) {
    std::string extension = path.extension().native();
    const auto lower = [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); };
    std::transform(extension.begin(), extension.end(), extension.begin(), lower);
    return extension == ".png" || extension == ".bmp";
}

std::string without_extension(const std::string& path) {
    return path.substr(0, path.size() - fs::path(path).extension().native().size());
}

/// Looks through a folder and those below it.
class Search {
public:
    Search(const std::string& root, Found& found, std::vector<std::string>& trouble)
        : root_(root), found_(found), trouble_(trouble) {}

    void run() {
        waiting_.emplace_back("");
        while (!waiting_.empty()) {
            const std::string folder = waiting_.back();
            waiting_.pop_back();
            look_into(folder);
        }
    }

private:
    void look_into(const std::string& folder) {
        std::error_code failed;
        fs::directory_iterator at(root_ / folder, failed);
        for (; !failed && at != fs::directory_iterator(); at.increment(failed)) {
            look_at(*at, folder + at->path().filename().native());
        }
        if (failed) trouble_.push_back(line_about(root_ / folder, failed.message()));
    }

    void look_at(const fs::directory_entry& entry, const std::string& below) {
        std::error_code failed;
        const bool folder = entry.is_directory(failed);
        if (folder && !entry.is_symlink(failed)) {
            waiting_.push_back(below + "/");
        } else if (folder) {
            trouble_.push_back(
                line_about(entry.path(), "a link to a folder, which is not followed"));
        } else if (is_picture(entry.path())) {
            add(entry, below);
        }
    }

    void add(const fs::directory_entry& entry, const std::string& below) {
        std::error_code failed;
        if (entry.exists(failed) && !entry.is_regular_file(failed)) {
            trouble_.push_back(line_about(entry.path(), "not a file"));
            return;
        }
        const auto [at, is_new] = found_.emplace(without_extension(below), entry.path().native());
        if (is_new) return;
        const std::string other = fs::path(at->second).filename().native();
        trouble_.push_back(line_about(entry.path(), "the same picture as " + shown_name(other)));
    }

    fs::path root_;
    Found& found_;
    std::vector<std::string>& trouble_;
    std::vector<std::string> waiting_;  // folders to be looked into, each with a slash at its end
};

Pairs pairs_of_folders(const std::string& expected, const std::string& actual) {
    Pairs result;
    result.folders = true;
    std::error_code failed;
    if (fs::equivalent(expected, actual, failed)) {
        result.trouble.push_back(line_about(actual, "the same folder as " + shown_name(expected)));
        return result;
    }
    Found left, right;
    if (fs::exists(expected, failed)) Search(expected, left, result.trouble).run();
    Search(actual, right, result.trouble).run();
    std::map<std::string, Pair> all;
    for (const auto& [name, path] : left) all[name] = {name, path, ""};
    for (const auto& [name, path] : right) {
        Pair& pair = all[name];
        pair.name = name;
        pair.actual = path;
    }
    for (auto& [name, pair] : all) result.pairs.push_back(std::move(pair));
    if (all.empty() && result.trouble.empty()) {
        const std::string both = shown_name(expected) + " and " + shown_name(actual);
        result.trouble.push_back(both + ": no pictures (*.png, *.bmp) in either");
    }
    return result;
}

std::string name_of(const std::string& expected, const std::string& actual) {
    const std::string& path = expected != "-" ? expected : actual;
    return path == "-" ? "picture" : fs::path(path).stem().native();
}

}  // namespace

Pairs find_pairs(const std::string& expected, const std::string& actual, bool approving) {
    std::error_code failed;
    const bool folder = fs::is_directory(actual, failed);
    const bool expected_is_there = expected == "-" || fs::exists(expected, failed);
    const bool both = folder == fs::is_directory(expected, failed);
    if (!both && (expected_is_there || !approving)) {
        Pairs none;
        const std::string& other = folder ? expected : actual;
        const bool there = other == "-" || fs::exists(other, failed);
        none.trouble.push_back(line_about(
            other, there ? "not a folder, as the other one is" : "No such file or directory"));
        return none;
    }
    if (folder) return pairs_of_folders(expected, actual);
    Pairs result;
    const std::string known = expected_is_there || !approving ? expected : "";
    result.pairs.push_back({name_of(expected, actual), known, actual});
    return result;
}

}  // namespace orvel_tools
