// A folder of agents in memory. Its reading can be held, and it counts what is asked of it.
#pragma once

#include "platform/agent_folder.h"

#include <condition_variable>
#include <map>
#include <mutex>
#include <utility>

namespace frimbolate::test {

class FakeAgentFolder : public AgentFolder {
  public:
    /// Adds or replaces an agent of the folder.
    void put(const std::string& path, AgentOverview overview) {
        const std::scoped_lock lock(mutex_);
        overview.path = path;
        agents_[path] = std::move(overview);
    }
    void remove(const std::string& path) {
        const std::scoped_lock lock(mutex_);
        agents_.erase(path);
    }
    void setReadable(bool readable) {
        const std::scoped_lock lock(mutex_);
        isReadable_ = readable;
    }
    /// Every read() from here on waits until release().
    void hold() {
        const std::scoped_lock lock(mutex_);
        isHeld_ = true;
    }
    void release() {
        const std::scoped_lock lock(mutex_);
        isHeld_ = false;
        changed_.notify_all();
    }
    int reads() const {
        const std::scoped_lock lock(mutex_);
        return reads_;
    }
    int lists() const {
        const std::scoped_lock lock(mutex_);
        return lists_;
    }

    std::optional<std::vector<std::string>> list(const std::string&) override {
        const std::scoped_lock lock(mutex_);
        ++lists_;
        if (!isReadable_)
            return std::nullopt;
        std::vector<std::string> paths;
        for (const auto& [path, agent] : agents_)
            paths.push_back(path);
        return paths;
    }
    AgentOverview read(const std::string& path, const TextStyle&) override {
        std::unique_lock lock(mutex_);
        ++reads_;
        changed_.wait(lock, [this] { return !isHeld_; });
        const auto found = agents_.find(path);
        return found == agents_.end() ? unreadableOverview(path, "it is gone") : found->second;
    }

  private:
    mutable std::mutex mutex_;
    std::condition_variable changed_;
    std::map<std::string, AgentOverview> agents_;
    bool isReadable_ = true;
    bool isHeld_ = false;
    int reads_ = 0;
    int lists_ = 0;
};

/// An overview for a list; the path is set by put().
inline AgentOverview listed(const std::string& name, const std::string& sentence,
                            AgentKind kind = AgentKind::Own, std::optional<bool> isOn = true) {
    AgentOverview overview;
    overview.name = name;
    overview.sentence = sentence;
    overview.kind = kind;
    overview.isOn = isOn;
    return overview;
}

} // namespace frimbolate::test
