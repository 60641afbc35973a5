#include "widgets/PictureReader.h"

#include "platform/BackgroundThread.h"
#include "platform/TextEncoding.h"
#include "shell/modUtilities.h"
#include "widgets/PictureFile.h"

#include <algorithm>
#include <condition_variable>
#include <deque>
#include <exception>
#include <map>
#include <mutex>
#include <unordered_set>
#include <utility>

namespace nesk {

using platform::ErrorCode;

namespace {

// More drives and shares wait until a worker has nothing left to do.
constexpr std::size_t MostWorkers = 8;

// Workers pause while answers of this size have not been taken.
constexpr std::size_t MostBytesWaiting = std::size_t{64} << 20;

class StationPictures final : public PictureFiles {
public:
    ErrorCode Stamp(const std::string& path, platform::FileStamp& stamp) override {
        return platform::StampOf(path, stamp);
    }
    ErrorCode Read(const std::string& path, std::string& bytes) override {
        return ReadPictureFile(path, bytes);
    }
};

// The drive or share of a path, in upper case.
std::string RootOf(const std::string& path) {
    const std::size_t length = modUtilities::ShareLength(path);
    return platform::ToUpper(path.substr(0, length > 0 ? length : 2));
}

// Reads a file unless it is known.
PictureReader::Answer Look(PictureFiles& files, PictureReader::Request request) {
    PictureReader::Answer answer{std::move(request.path), ErrorCode::Success, {}, false, ""};
    try {
        answer.result = files.Stamp(answer.path, answer.stamp);
        answer.isSame = answer.result == ErrorCode::Success && request.known == answer.stamp;
        if (answer.result == ErrorCode::Success && !answer.isSame)
            answer.result = files.Read(answer.path, answer.bytes);
    } catch (const std::exception&) {
        // Of a file that does not fit into memory no picture can be shown.
        answer.result = ErrorCode::OutOfMemory;
        answer.bytes = {};
    }
    return answer;
}

} // namespace

// What the workers share with the reader. It stays as long as a worker runs.
struct PictureReader::Shared {
    struct Root {
        std::deque<Request> waiting;
        bool hasWorker = false;
    };

    std::mutex mutex;
    std::condition_variable hasRoom; // answers were taken, or the workers shall end
    std::shared_ptr<PictureFiles> files;
    std::map<std::string, Root> roots;
    std::unordered_set<std::string> inWork; // begun, and not taken yet
    std::deque<Answer> answers;
    std::size_t bytesWaiting = 0; // of the answers
    std::size_t workers = 0;
    bool ends = false;

    // A drive or share with requests and without a worker; null for none.
    Root* Idle() {
        for (auto& [name, root] : roots)
            if (!root.hasWorker && !root.waiting.empty()) return &root;
        return nullptr;
    }

    // Answers the requests of one drive or share after the other, until none is left.
    static void Work(const std::shared_ptr<Shared>& shared) {
        std::unique_lock lock(shared->mutex);
        while (Root* const root = shared->ends ? nullptr : shared->Idle()) {
            root->hasWorker = true;
            while (!shared->ends && !root->waiting.empty()) {
                Request request = std::move(root->waiting.front());
                root->waiting.pop_front();
                shared->inWork.insert(request.path);
                lock.unlock();
                Answer answer = Look(*shared->files, std::move(request));
                lock.lock();
                shared->bytesWaiting += answer.bytes.size();
                shared->answers.push_back(std::move(answer));
                shared->hasRoom.wait(lock,
                                     [&] { return shared->ends || shared->bytesWaiting < MostBytesWaiting; });
            }
            root->hasWorker = false;
        }
        --shared->workers;
    }
};

std::shared_ptr<PictureFiles> StationPictureFiles() {
    return std::make_shared<StationPictures>();
}

PictureReader::PictureReader(std::shared_ptr<PictureFiles> files) : m_shared(std::make_shared<Shared>()) {
    m_shared->files = std::move(files);
}

PictureReader::~PictureReader() {
    const std::lock_guard lock(m_shared->mutex);
    m_shared->ends = true;
    m_shared->hasRoom.notify_all();
}

void PictureReader::Want(const std::vector<Request>& requests) {
    std::size_t started = 0;
    {
        const std::lock_guard lock(m_shared->mutex);
        for (auto& [name, root] : m_shared->roots)
            root.waiting.clear();
        std::unordered_set<std::string> added;
        for (const Request& request : requests)
            if (!m_shared->inWork.contains(request.path) && added.insert(request.path).second)
                m_shared->roots[RootOf(request.path)].waiting.push_back(request);
        const auto idle = static_cast<std::size_t>(
            std::count_if(m_shared->roots.begin(), m_shared->roots.end(), [](const auto& entry) {
                return !entry.second.hasWorker && !entry.second.waiting.empty();
            }));
        started = std::min(idle, MostWorkers - m_shared->workers);
        m_shared->workers += started;
    }
    for (std::size_t i = 0; i < started; ++i) {
        if (platform::RunInBackground([shared = m_shared] { Shared::Work(shared); })) continue;
        // The system has no thread left now. The next call tries again.
        const std::lock_guard lock(m_shared->mutex);
        --m_shared->workers;
    }
}

std::optional<PictureReader::Answer> PictureReader::Take() {
    const std::lock_guard lock(m_shared->mutex);
    if (m_shared->answers.empty()) return std::nullopt;
    Answer answer = std::move(m_shared->answers.front());
    m_shared->answers.pop_front();
    m_shared->bytesWaiting -= answer.bytes.size();
    m_shared->inWork.erase(answer.path);
    m_shared->hasRoom.notify_all();
    return answer;
}

bool PictureReader::IsBusy() const {
    const std::lock_guard lock(m_shared->mutex);
    return !m_shared->inWork.empty() || std::any_of(m_shared->roots.begin(), m_shared->roots.end(),
                                                    [](const auto& e) { return !e.second.waiting.empty(); });
}

} // namespace nesk
