#include "Jobs.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <exception>
#include <iostream>
#include <mutex>
#include <thread>

#include "Output.h"
#include "Progress.h"

namespace {

constexpr std::size_t kMostHeld = 64 << 20;  // bytes that wait to be printed
// Numbers that a thread takes at once: each time costs as much as reading some kilobytes.
constexpr std::size_t kMostTaken = 32;
// Bytes of documents that are worth threads of their own.
constexpr std::size_t kWorthThreads = 1 << 20;

std::size_t s_iJobs = 1;
std::atomic<std::size_t> s_iBusy = 0;  // threads at work
thread_local bool t_bWorker = false;   // whether it is one of these

// Prints as the program does that has one thread: standard error after what came before it.
void Print(const std::vector<Printed>& printed) {
  for (const Printed& part : printed) {
    if (part.isError) Out().flush();
    (part.isError ? Err() : Out()) << part.text;
  }
}

class Runner {
 public:
  Runner(std::size_t count, const std::function<int(std::size_t)>& work, std::size_t threads,
         bool showsProgress)
      : m_iCount(count),
        m_Work(work),
        m_iTaken(std::clamp<std::size_t>(count / (threads * 8), 1, kMostTaken)),
        m_bShowsProgress(showsProgress) {
    m_Threads.reserve(threads);
    try {
      while (m_Threads.size() < threads) m_Threads.emplace_back([this] { Work(); });
    } catch (const std::exception&) {
      // No room for another one: then there are fewer.
    }
  }
  ~Runner() { Stop(); }
  Runner(const Runner&) = delete;
  Runner& operator=(const Runner&) = delete;

  bool HasThreads() const { return !m_Threads.empty(); }

  int PrintAll() {
    std::unique_lock<std::mutex> lock(m_Mutex);
    for (std::size_t done = 0; done < m_iCount;) {
      Await(lock);
      if (m_Shares.empty()) continue;
      Share& first = m_Shares.front();
      if (!first.printed.empty()) {
        PrintPart(lock, first);
      } else if (first.isDone) {
        if (first.failure) std::rethrow_exception(first.failure);
        done += first.count;
        m_Shares.pop_front();
        m_MayGoOn.notify_all();
      }
    }
    if (m_bShowsProgress) Progress::Get().Clear(false);
    return m_iStatus;
  }

 private:
  // Numbers that a thread takes, and what is printed of them.
  struct Share {
    std::size_t count = 0;
    std::vector<Printed> printed;  // not yet
    std::size_t bytes = 0;         // of these
    bool isDone = false;
    std::exception_ptr failure;
  };

  // Gets what a share prints.
  class Taker : public PrintTaker {
   public:
    Taker(Runner& runner, Share& share) : m_Runner(runner), m_Share(share) {}
    void Take(std::vector<Printed>& printed, std::size_t bytes) override {
      m_Runner.Take(m_Share, printed, bytes);
    }

   private:
    Runner& m_Runner;
    Share& m_Share;
  };

  // ---- The threads that work --------------------------------------------------------------------
  void Work() {
    t_bWorker = true;
    ++s_iBusy;
    while (true) {
      std::unique_lock<std::mutex> lock(m_Mutex);
      m_MayGoOn.wait(lock, [&] { return m_bStopped || m_iHeld < kMostHeld || m_Shares.empty(); });
      if (m_bStopped || m_iNext == m_iCount) break;
      const std::size_t from = m_iNext;
      m_iNext = std::min(from + m_iTaken, m_iCount);
      m_Shares.emplace_back();
      Share& share = m_Shares.back();  // stays where it is until it has been printed
      share.count = m_iNext - from;
      lock.unlock();
      Do(from, share);
    }
    --s_iBusy;
  }
  void Do(std::size_t from, Share& share) {
    Taker taker(*this, share);
    int status = kDone;
    std::exception_ptr failure;
    try {
      Redirection redirection(taker);
      try {
        const std::size_t end = from + share.count;
        for (std::size_t i = from; i < end && !m_bStopped; ++i)
          status = std::max(status, m_Work(i));
      } catch (...) {
        failure = std::current_exception();
      }
      redirection.Finish();
    } catch (...) {
      failure = std::current_exception();
    }
    const std::lock_guard<std::mutex> lock(m_Mutex);
    m_iStatus = std::max(m_iStatus, status);
    share.isDone = true;
    share.failure = failure;
    m_MayPrint.notify_one();
  }
  void Take(Share& share, std::vector<Printed>& printed, std::size_t bytes) {
    if (printed.empty()) return;
    std::unique_lock<std::mutex> lock(m_Mutex);
    m_MayGoOn.wait(lock, [&] {
      const bool isFirst = &share == &m_Shares.front();
      return m_bStopped || m_iHeld < kMostHeld || (isFirst && share.printed.empty());
    });
    if (share.printed.empty()) {
      share.printed.swap(printed);
    } else {
      std::move(printed.begin(), printed.end(), std::back_inserter(share.printed));
    }
    share.bytes += bytes;
    m_iHeld += bytes;
    if (&share == &m_Shares.front()) m_MayPrint.notify_one();
  }

  // ---- The thread that prints -------------------------------------------------------------------
  void Await(std::unique_lock<std::mutex>& lock) {
    const auto hasSomething = [&] {
      return !m_Shares.empty() && (!m_Shares.front().printed.empty() || m_Shares.front().isDone);
    };
    if (!m_bShowsProgress) return m_MayPrint.wait(lock, hasSomething);
    m_MayPrint.wait_for(lock, std::chrono::milliseconds(100), hasSomething);
    Progress::Get().Update();
  }
  void PrintPart(std::unique_lock<std::mutex>& lock, Share& share) {
    std::vector<Printed> printed;
    printed.swap(share.printed);
    m_iHeld -= share.bytes;
    share.bytes = 0;
    m_MayGoOn.notify_all();
    lock.unlock();
    if (m_bShowsProgress) Progress::Get().Clear(true);
    Print(printed);
    lock.lock();
  }
  void Stop() {
    {
      const std::lock_guard<std::mutex> lock(m_Mutex);
      m_bStopped = true;
    }
    m_MayGoOn.notify_all();
    for (std::thread& thread : m_Threads) thread.join();
    if (m_bShowsProgress) Progress::Get().Clear(false);
  }

  const std::size_t m_iCount;
  const std::function<int(std::size_t)>& m_Work;
  const std::size_t m_iTaken;
  const bool m_bShowsProgress;
  std::mutex m_Mutex;  // of what follows
  std::condition_variable m_MayGoOn;
  std::condition_variable m_MayPrint;
  std::deque<Share> m_Shares;  // that were taken and are not printed yet
  std::size_t m_iNext = 0;     // the first number that was not taken
  std::size_t m_iHeld = 0;     // bytes of all that waits
  int m_iStatus = kDone;
  std::atomic<bool> m_bStopped = false;
  std::vector<std::thread> m_Threads;
};

}  // namespace

void SetJobs(std::size_t count) {
  s_iJobs = count ? count : std::max(1U, std::thread::hardware_concurrency());
}

int InOrder(std::size_t count, const std::function<int(std::size_t)>& work, bool isShared) {
  // The thread that calls does nothing but wait and print.
  const std::size_t busy = s_iBusy - (t_bWorker ? 1 : 0);
  const std::size_t idle = s_iJobs > busy ? s_iJobs - busy : 1;
  const std::size_t threads = isShared ? std::min(idle, count) : 1;
  const bool showsProgress = !t_bWorker && Progress::Get().IsShown();
  if (threads > 1 || showsProgress) {
    Runner runner(count, work, threads, showsProgress);
    if (runner.HasThreads()) return runner.PrintAll();
  }
  int status = kDone;
  for (std::size_t i = 0; i < count; ++i) status = std::max(status, work(i));
  return status;
}

int ForFiles(const std::vector<std::string>& paths, const std::function<int(std::size_t)>& work) {
  Progress& progress = Progress::Get();
  progress.AddFiles(paths.size());
  const auto one = [&](std::size_t i) {
    const int status = work(i);
    progress.FileIsDone();
    return status;
  };
  // Who comes first to standard input takes it all.
  return InOrder(paths.size(), one, std::count(paths.begin(), paths.end(), "-") < 2);
}

int ForDocuments(const std::vector<Document>& documents,
                 const std::function<int(std::size_t)>& work) {
  Progress& progress = Progress::Get();
  progress.AddDocuments(documents.size());
  std::size_t bytes = 0;
  for (const Document& document : documents) bytes += document.text.size();
  const auto one = [&](std::size_t i) {
    const int status = work(i);
    progress.DocumentIsDone();
    return status;
  };
  return InOrder(documents.size(), one, bytes >= kWorthThreads);
}

int ForOne(const std::function<int()>& work) {
  return InOrder(1, [&](std::size_t /*i*/) { return work(); });
}
