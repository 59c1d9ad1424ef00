#include "tests/crash/DiskModel.h"

#include <algorithm>

namespace clb {
namespace {

/// The bytes that a disk writes either completely or not at all.
constexpr std::size_t kSector = 512;

/// Keeps all, nothing or about half of what is pending. The first two are the likeliest on real
/// disks.
unsigned Percent(std::mt19937& random)
{
    switch (random() % 4) {
        case 0: return 0;
        case 1: return 100;
        default: return static_cast<unsigned>(random() % 101);
    }
}

bool Happens(unsigned percent, std::mt19937& random)
{
    return random() % 100 < percent;
}

/// A file that has grown holds what was on the disk there before: zeros or anything else.
void Grow(std::string& bytes, std::size_t size, std::mt19937& random)
{
    const bool garbage = random() % 2 == 0;
    while (bytes.size() < size)
        bytes += garbage ? static_cast<char>(random()) : '\0';
}

}  // namespace

void DiskModel::Existing(const std::string& path, std::string bytes)
{
    names_[path] = std::make_shared<Content>(Content{std::move(bytes), {}});
    syncedNames_[path] = names_[path];
}

void DiskModel::Create(const std::string& path)
{
    names_[path] = std::make_shared<Content>();
    pendingNames_.push_back({path, names_[path]});
}

void DiskModel::Write(const std::string& path, const void* bytes, std::size_t count,
                      std::size_t offset)
{
    if (Knows(path))
        names_[path]->pending.emplace_back(
            Written{offset, std::string(static_cast<const char*>(bytes), count)});
}

void DiskModel::Truncate(const std::string& path, std::size_t size)
{
    if (Knows(path))
        names_[path]->pending.emplace_back(Truncated{size});
}

void DiskModel::Sync(const std::string& path, bool folder)
{
    if (folder) {
        syncedNames_ = names_;
        pendingNames_.clear();
    }
    if (!Knows(path))
        return;
    Content& content = *names_[path];
    for (const Change& change : content.pending) {
        if (const auto* cut = std::get_if<Truncated>(&change)) {
            content.synced.resize(cut->size);
            continue;
        }
        const auto& written = std::get<Written>(change);
        content.synced.resize(
            std::max(content.synced.size(), written.offset + written.bytes.size()));
        content.synced.replace(written.offset, written.bytes.size(), written.bytes);
    }
    content.pending.clear();
}

void DiskModel::Delete(const std::string& path, bool syncFolder)
{
    names_.erase(path);
    pendingNames_.push_back({path, nullptr});
    if (syncFolder)
        Sync("", true);
}

std::map<std::string, std::string> DiskModel::AfterPowerLoss(std::mt19937& random) const
{
    auto names = syncedNames_;
    // Changes of names reach the disk in their order.
    const std::size_t done = random() % (pendingNames_.size() + 1);
    for (std::size_t at = 0; at < done; ++at) {
        if (pendingNames_[at].content)
            names[pendingNames_[at].path] = pendingNames_[at].content;
        else
            names.erase(pendingNames_[at].path);
    }
    std::map<std::string, std::string> files;
    for (const auto& [path, content] : names)
        files[path] = Survivor(*content, random);
    return files;
}

std::string DiskModel::Survivor(const Content& content, std::mt19937& random)
{
    std::string bytes = content.synced;
    const unsigned percent = Percent(random);
    for (const Change& change : content.pending) {
        if (const auto* written = std::get_if<Written>(&change))
            Apply(*written, percent, random, bytes);
        else if (Happens(percent, random))
            bytes.resize(std::get<Truncated>(change).size);
    }
    return bytes;
}

void DiskModel::Apply(const Written& written, unsigned percent, std::mt19937& random,
                      std::string& bytes)
{
    const std::size_t end = written.offset + written.bytes.size();
    for (std::size_t from = written.offset; from < end;) {
        const std::size_t to = std::min(end, (from / kSector + 1) * kSector);
        if (Happens(percent, random)) {
            Grow(bytes, to, random);
            bytes.replace(from, to - from, written.bytes, from - written.offset, to - from);
        } else if (bytes.size() < to && random() % 4 == 0) {
            // The size has reached the disk and the bytes have not.
            Grow(bytes, to, random);
        }
        from = to;
    }
}

}  // namespace clb
