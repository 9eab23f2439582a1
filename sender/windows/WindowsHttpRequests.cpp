#include "windows/WindowsHttpRequests.h"

#include <deque>
#include <mutex>

#include "windows/WinHttpSession.h"

namespace tellwick::sender {

struct WindowsHttpRequests::Worker {
    struct Job {
        int number = 0;
        HttpRequest request;
    };

    // The thread's work: makes the requests, until there is no owner any more.
    static void Run(const std::shared_ptr<Worker>& worker, const MainThread& mainThread);

    void Wake() const { SetEvent(wake.get()); }

    CriticalSection lock;
    std::deque<Job> jobs;  // under the lock, and so is the next one
    bool ended = false;
    windows::Handle wake{CreateEventW(nullptr, FALSE, FALSE, nullptr)};
    WindowsHttpRequests* owner = nullptr;  // of the main thread only
};

void WindowsHttpRequests::Worker::Run(const std::shared_ptr<Worker>& worker,
                                      const MainThread& mainThread) {
    WinHttpSession session;
    for (;;) {
        Job job;
        {
            const std::lock_guard hold(worker->lock);
            if (worker->ended) return;
            if (!worker->jobs.empty()) {
                job = std::move(worker->jobs.front());
                worker->jobs.pop_front();
            }
        }
        if (job.number == 0) {
            WaitForSingleObject(worker->wake.get(), INFINITE);
            continue;
        }
        mainThread.Post([worker, number = job.number, answer = session.Exchange(job.request)] {
            if (worker->owner) worker->owner->Answered(number, answer);
        });
    }
}

WindowsHttpRequests::WindowsHttpRequests(const MainThread& mainThread)
    : mainThread(mainThread), worker(std::make_shared<Worker>()) {
    worker->owner = this;
}

WindowsHttpRequests::~WindowsHttpRequests() {
    worker->owner = nullptr;
    const std::lock_guard hold(worker->lock);
    worker->ended = true;
    worker->Wake();
}

void WindowsHttpRequests::Send(const HttpRequest& request, Done done) {
    const int number = ++lastNumber;
    waiting.emplace(number, std::move(done));
    const auto run = [worker = worker, thread = mainThread] { Worker::Run(worker, thread); };
    running = running || StartThread(run);
    if (!running) {
        mainThread.Post([worker = worker, number] {
            if (worker->owner) worker->owner->Answered(number, HttpAnswer());
        });
        return;
    }
    const std::lock_guard hold(worker->lock);
    worker->jobs.push_back({number, request});
    worker->Wake();
}

void WindowsHttpRequests::Answered(int number, const HttpAnswer& answer) {
    const auto found = waiting.find(number);
    if (found == waiting.end()) return;
    const Done done = std::move(found->second);
    waiting.erase(found);
    done(answer);
}

}  // namespace tellwick::sender
