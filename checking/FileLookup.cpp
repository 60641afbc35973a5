#include "checking/FileLookup.h"

#include "platform/BackgroundThread.h"
#include "platform/TextEncoding.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <exception>
#include <iterator>
#include <mutex>
#include <thread>
#include <utility>

namespace nesk {

namespace {

// How long the end of a lookup waits for workers that are in the middle of an answer.
constexpr std::chrono::milliseconds LongestWait{200};

// While many questions are answered, the owner is woken so often.
constexpr std::chrono::milliseconds WakePause{10};

// Questions are given to a worker together, at the latest when there are so many.
constexpr std::size_t MostAsked = 256;
constexpr std::size_t MostTaken = 16; // by one thread

// Looking at a file mostly means waiting for the system, which serves several threads at once.
unsigned ThreadsOfWorker() {
    return std::clamp(std::thread::hardware_concurrency(), 1U, 4U);
}

// More workers than this are never needed; further roots share the last one.
constexpr std::size_t MostWorkers = 16;

// The drive or share of a path, in upper case; "" for a path without one.
std::string RootOf(const std::string& path) {
    if (path.size() >= 2 && path[1] == ':') return platform::ToUpper(path.substr(0, 2));
    if (!path.starts_with("\\\\")) return "";
    const std::size_t share = path.find('\\', 2);
    if (share == std::string::npos) return platform::ToUpper(path);
    return platform::ToUpper(path.substr(0, path.find('\\', share + 1)));
}

} // namespace

// What the workers share with the lookup. It stays as long as a worker runs.
struct FileLookup::Shared {
    struct Answer {
        std::uint32_t generation;
        Index index;
        FileFacts facts;
    };

    std::mutex mutex;
    std::condition_variable hasQuestions; // or shall end
    std::condition_variable hasStopped;   // a worker is no longer looking
    std::shared_ptr<FileInspector> inspector;
    std::function<void()> wake;
    std::vector<Answer> answers;
    std::chrono::steady_clock::time_point woken{};
    std::atomic<std::uint32_t> generation = 0; // answers to older questions are not wanted
    std::size_t looking = 0;                   // threads in the middle of an answer
    std::atomic<bool> ends = false;

    // Wakes the owner at the end and now and then before. Called with the mutex locked.
    void WakeIfDue(bool isEnd) {
        const auto now = std::chrono::steady_clock::now();
        if (!wake || answers.empty() || (!isEnd && now - woken < WakePause)) return;
        woken = now;
        wake();
    }
};

struct FileLookup::Worker {
    struct Question {
        std::uint32_t generation;
        Index index;
        FileUse use;
        std::string path;
    };

    unsigned threads = 0;           // started; of the owner alone
    std::vector<Question> asked;    // not given to the worker yet; of the owner alone
    std::deque<Question> questions; // guarded by the mutex of Shared

    // The next few questions. Their files are often in one folder, so one thread answers all of them.
    std::vector<Question> TakeSome() {
        const auto end =
            questions.begin() + static_cast<std::ptrdiff_t>(std::min(questions.size(), MostTaken));
        std::vector<Question> some(std::move_iterator(questions.begin()), std::move_iterator(end));
        questions.erase(questions.begin(), end);
        return some;
    }

    // Answers questions until the lookup ends.
    static void Run(const std::shared_ptr<Shared>& shared, const std::shared_ptr<Worker>& worker) {
        std::unique_lock lock(shared->mutex);
        for (;;) {
            shared->hasQuestions.wait(lock, [&] { return shared->ends || !worker->questions.empty(); });
            if (shared->ends) return;
            const std::vector<Question> questions = worker->TakeSome();
            ++shared->looking;
            lock.unlock();
            std::vector<Shared::Answer> answers = AnswersTo(questions, *shared);
            lock.lock();
            if (--shared->looking == 0) shared->hasStopped.notify_all();
            if (shared->ends) return;
            std::move(answers.begin(), answers.end(), std::back_inserter(shared->answers));
            shared->WakeIfDue(worker->questions.empty());
        }
    }

    static std::vector<Shared::Answer> AnswersTo(const std::vector<Question>& questions, Shared& shared) {
        std::vector<Shared::Answer> answers;
        for (const Question& question : questions) {
            if (shared.ends) break;
            if (question.generation != shared.generation) continue;
            answers.push_back({question.generation, question.index, Look(*shared.inspector, question)});
        }
        return answers;
    }

    static FileFacts Look(FileInspector& inspector, const Question& question) {
        try {
            return inspector.Look(question.path, question.use);
        } catch (const std::exception&) {
            // An error must not end the program. The only one that can be expected is a lack of memory.
            return {FileFacts::State::Unreadable, ""};
        }
    }
};

FileLookup::FileLookup(std::shared_ptr<FileInspector> inspector, std::function<void()> wake)
    : m_shared(std::make_shared<Shared>()) {
    m_shared->inspector = std::move(inspector);
    m_shared->wake = std::move(wake);
}

FileLookup::~FileLookup() {
    std::unique_lock lock(m_shared->mutex);
    m_shared->ends = true;
    m_shared->wake = nullptr;
    m_shared->hasQuestions.notify_all();
    m_shared->hasStopped.wait_for(lock, LongestWait, [this] { return m_shared->looking == 0; });
}

std::string FileLookup::KeyOf(std::string_view path, FileUse use) {
    std::string key;
    key.reserve(path.size() + 1);
    key += static_cast<char>('0' + static_cast<int>(use));
    key += path;
    return key;
}

FileLookup::Index FileLookup::IndexOf(std::string_view path, FileUse use) {
    const auto [place, isNew] = m_indexes.try_emplace(KeyOf(path, use), static_cast<Index>(m_paths.size()));
    if (isNew) {
        m_paths.push_back({&place->first, use, false, false, {}});
        Ask(place->second);
    }
    return place->second;
}

const FileFacts* FileLookup::Known(std::string_view path, FileUse use) const {
    const auto found = m_indexes.find(KeyOf(path, use));
    return found != m_indexes.end() ? Facts(found->second) : nullptr;
}

std::string_view FileLookup::PathOf(Index index) const {
    return std::string_view(*m_paths[index].key).substr(1);
}

void FileLookup::Ask(Index index) {
    Path& path = m_paths[index];
    if (path.isWaiting) return;
    Worker::Question question{m_generation, index, path.use, std::string(PathOf(index))};
    const std::shared_ptr<Worker> worker = WorkerFor(question.path);
    worker->asked.push_back(std::move(question));
    if (worker->asked.size() >= MostAsked) Give(worker);
    path.isWaiting = true;
    ++m_waiting;
}

void FileLookup::Give(const std::shared_ptr<Worker>& worker) {
    if (worker->asked.empty()) return;
    // If the system has no thread left now, the next call tries again.
    while (worker->threads < ThreadsOfWorker() &&
           platform::RunInBackground([shared = m_shared, worker] { Worker::Run(shared, worker); }))
        ++worker->threads;
    const std::lock_guard lock(m_shared->mutex);
    if (worker->questions.empty()) m_shared->hasQuestions.notify_all();
    std::move(worker->asked.begin(), worker->asked.end(), std::back_inserter(worker->questions));
    worker->asked.clear();
}

void FileLookup::Begin() {
    for (const auto& [root, worker] : m_workers)
        Give(worker);
}

std::shared_ptr<FileLookup::Worker> FileLookup::WorkerFor(const std::string& path) {
    std::string root = RootOf(path);
    if (const auto found = m_workers.find(root); found != m_workers.end()) return found->second;
    if (m_workers.size() >= MostWorkers) return m_workers.begin()->second;
    auto worker = std::make_shared<Worker>();
    return m_workers.emplace(std::move(root), std::move(worker)).first->second;
}

FileLookup::News FileLookup::TakeAnswers() {
    std::vector<Shared::Answer> answers;
    {
        const std::lock_guard lock(m_shared->mutex);
        answers.swap(m_shared->answers);
    }
    News news;
    for (Shared::Answer& answer : answers) {
        if (answer.generation != m_generation) continue;
        Path& path = m_paths[answer.index];
        path.isWaiting = false;
        --m_waiting;
        if (path.isKnown && path.facts == answer.facts) continue;
        (path.isKnown ? news.isChanged : news.isFirst) = true;
        path.isKnown = true;
        path.facts = std::move(answer.facts);
    }
    return news;
}

void FileLookup::Refresh() {
    for (Index index = 0; index < m_paths.size(); ++index)
        Ask(index);
    Begin();
}

void FileLookup::Clear() {
    ++m_generation;
    m_paths.clear();
    m_indexes.clear();
    m_waiting = 0;
    const std::lock_guard lock(m_shared->mutex);
    m_shared->generation = m_generation;
    m_shared->answers.clear();
    for (const auto& [root, worker] : m_workers) {
        worker->asked.clear();
        worker->questions.clear();
    }
}

} // namespace nesk
