#include "tests/two_at_once/reading_process.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstring>
#include <new>
#include <stdexcept>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace frimbolate::test {

struct ReadingProcess::Shared {
    std::atomic<bool> ends = false, isFlawed = false;
    std::atomic<long> readings = 0;
    char flaw[1000] = {}; ///< written once, before isFlawed
};

ReadingProcess::ReadingProcess(const SharedFolders& folders, int programs) {
    void* memory =
        ::mmap(nullptr, sizeof(Shared), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED)
        throw std::runtime_error("no memory for two processes");
    shared_ = new (memory) Shared;
    child_ = ::fork();
    if (child_ == 0)
        read(folders, programs);
}

ReadingProcess::~ReadingProcess() {
    shared_->ends = true;
    while (::waitpid(child_, nullptr, 0) < 0 && errno == EINTR) {
    }
    ::munmap(shared_, sizeof(Shared));
}

void ReadingProcess::read(const SharedFolders& folders, int programs) {
    std::vector<std::string> agents = {folders.sameAgent(), folders.switchedAgent()};
    for (int program = 0; program < programs; ++program)
        agents.push_back(folders.ownAgent(program));
    while (!shared_->ends) {
        std::string flaw = folders.flawOfSettings();
        for (const auto& path : agents)
            if (flaw.empty())
                flaw = folders.flawOfAgent(path);
        if (!flaw.empty() && !shared_->isFlawed) {
            std::strncpy(shared_->flaw, flaw.c_str(), sizeof shared_->flaw - 1);
            shared_->isFlawed = true;
        }
        ++shared_->readings;
    }
    ::_exit(0);
}

long ReadingProcess::readings() const { return shared_->readings; }

std::string ReadingProcess::flaw() const { return shared_->isFlawed ? shared_->flaw : ""; }

} // namespace frimbolate::test
