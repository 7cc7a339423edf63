#include "tests/profiles/FailingDisk.h"

#include <algorithm>
#include <fstream>
#include <iterator>

namespace brimlow::test {

namespace fs = std::filesystem;

namespace {

FailingDisk* current = nullptr;

std::string bytesOf(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace

std::size_t Choices::pick(std::size_t count) {
    if (position_ == choices_.size())
        choices_.push_back({0, count});
    return choices_[position_++].picked;
}

bool Choices::next() {
    position_ = 0;
    while (!choices_.empty() && ++choices_.back().picked == choices_.back().count)
        choices_.pop_back();
    return !choices_.empty();
}

FailingDisk::FailingDisk(const fs::path& root) : root_(root), tree_(scan(root)) {
    current = this;
}

FailingDisk::~FailingDisk() {
    current = nullptr;
}

FailingDisk* FailingDisk::of(const fs::path& path) {
    if (!current || path.empty())
        return nullptr;
    const bool below = *path.lexically_relative(current->root_).begin() != "..";
    return below ? current : nullptr;
}

fs::path FailingDisk::pathOf(int descriptor) {
    if (!current)
        return {};
    const auto found = current->descriptors_.find(descriptor);
    return found == current->descriptors_.end() ? fs::path() : found->second.path;
}

std::shared_ptr<FailingDisk::Node> FailingDisk::scan(const fs::path& path) {
    auto node = std::make_shared<Node>();
    node->type = fs::symlink_status(path).type();
    if (node->type == fs::file_type::symlink)
        node->bytes = fs::read_symlink(path).string();
    if (node->type == fs::file_type::regular)
        node->bytes = node->securedBytes = bytesOf(path);
    if (node->type == fs::file_type::directory) {
        for (const auto& each : fs::directory_iterator(path))
            node->securedNames[each.path().filename()] = scan(each.path());
    }
    return node;
}

FailingDisk::Names FailingDisk::names(const Node& folder, std::size_t changes) {
    Names names = folder.securedNames;
    for (std::size_t i = 0; i < changes; ++i) {
        names.erase(folder.changes[i].removed);
        if (!folder.changes[i].added.empty())
            names[folder.changes[i].added] = folder.changes[i].node;
    }
    return names;
}

std::shared_ptr<FailingDisk::Node> FailingDisk::find(const fs::path& path) const {
    std::shared_ptr<Node> node = tree_;
    if (path == root_)
        return node;
    for (const auto& name : path.lexically_relative(root_)) {
        const Names all = names(*node, node->changes.size());
        const auto found = all.find(name);
        if (found == all.end())
            return nullptr;
        node = found->second;
    }
    return node;
}

void FailingDisk::forEachPowerCut(const fs::path& folder, const std::function<void()>& check) {
    Choices choices;
    do {
        fs::remove_all(folder);
        layOut(*tree_, folder, choices);
        check();
    } while (choices.next());
}

void FailingDisk::layOut(const Node& node, const fs::path& path, Choices& choices) {
    if (node.type == fs::file_type::symlink)
        return fs::create_symlink(node.bytes, path);
    if (node.type == fs::file_type::directory) {
        fs::create_directory(path);
        for (const auto& [name, each] : names(node, choices.pick(node.changes.size() + 1)))
            layOut(*each, path / name, choices);
        return;
    }
    const std::string half = node.bytes.substr(0, node.bytes.size() / 2);
    const std::vector<std::string> held{node.securedBytes, node.bytes, half, ""};
    const bool secured = node.bytes == node.securedBytes;
    std::ofstream(path, std::ios::binary) << held[choices.pick(secured ? 1 : held.size())];
}

void FailingDisk::opened(int descriptor, const fs::path& path) {
    if (!find(path))
        made(path);
    descriptors_[descriptor] = {path, find(path)};
    written(descriptor); // it may have been truncated
}

void FailingDisk::written(int descriptor) {
    const auto& [path, node] = descriptors_.at(descriptor);
    if (node->type == fs::file_type::regular)
        node->bytes = bytesOf(path);
}

void FailingDisk::synchronised(int descriptor) {
    Node& node = *descriptors_.at(descriptor).node;
    node.securedBytes = node.bytes;
    node.securedNames = names(node, node.changes.size());
    node.changes.clear();
}

void FailingDisk::made(const fs::path& path) {
    auto node = std::make_shared<Node>();
    node->type = fs::symlink_status(path).type();
    find(path.parent_path())->changes.push_back({"", path.filename(), node});
}

void FailingDisk::moved(const fs::path& from, const fs::path& to) {
    const auto node = find(from);
    const auto folder = find(from.parent_path());
    if (folder == find(to.parent_path()))
        return folder->changes.push_back({from.filename(), to.filename(), node});
    removed(from); // between folders either half may reach the disk alone
    find(to.parent_path())->changes.push_back({"", to.filename(), node});
}

void FailingDisk::removed(const fs::path& path) {
    find(path.parent_path())->changes.push_back({path.filename(), "", nullptr});
}

} // namespace brimlow::test
