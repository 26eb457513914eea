#include "cli/inorder.h"

#include <condition_variable>
#include <deque>
#include <exception>
#include <memory>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

#include "cli/fault.h"

namespace moistair {

namespace {

struct Piece {
  std::string block;
  BatchResult result;
  bool done = false;
};

/// The pieces on their way, and who waits for which.
class Pipeline {
public:
  Pipeline(const BatchSteps& steps, unsigned jobs) : steps_(steps), limit_(std::size_t{jobs} + 4) {}

  void read() {
    while (auto block = steps_.read()) {
      std::unique_lock lock(mutex_);
      changed_.wait(lock, [&] { return stopped_ || unwritten_.size() < limit_; });
      if (stopped_) return;
      auto piece = std::make_shared<Piece>(Piece{std::move(*block), {}});
      waiting_.push_back(piece);
      unwritten_.push_back(std::move(piece));
      changed_.notify_all();
    }
  }

  void work() {
    while (const auto piece = nextWaiting()) {
      BatchResult result = steps_.work(piece->block);
      const std::lock_guard lock(mutex_);
      piece->result = std::move(result);
      piece->done = true;
      changed_.notify_all();
    }
  }

  void write() {
    while (const auto piece = nextDone()) steps_.write(piece->result);
  }

  /// Runs a side of the pipeline; if it throws, all the others stop where they are.
  template <class Side>
  void guarded(const Side& side) {
    try {
      side();
    } catch (...) {
      keepFault();
      const std::lock_guard lock(mutex_);
      stopped_ = true;
      changed_.notify_all();
    }
  }

  /// Runs the reading side. What was read before it ended or threw is still written.
  template <class Side>
  void reading(const Side& side) {
    try {
      side();
    } catch (...) {
      keepFault();
    }
    const std::lock_guard lock(mutex_);
    ended_ = true;
    changed_.notify_all();
  }

  void rethrow() const {
    if (fault_) std::rethrow_exception(fault_);
  }

private:
  void keepFault() {
    const std::lock_guard lock(mutex_);
    if (!fault_) fault_ = std::current_exception();
  }

  std::shared_ptr<Piece> nextWaiting() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [&] { return stopped_ || ended_ || !waiting_.empty(); });
    if (stopped_ || waiting_.empty()) return nullptr;
    auto piece = std::move(waiting_.front());
    waiting_.pop_front();
    return piece;
  }

  std::shared_ptr<Piece> nextDone() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [&] { return stopped_ || (unwritten_.empty() ? ended_ : unwritten_.front()->done); });
    if (stopped_ || unwritten_.empty()) return nullptr;
    auto piece = std::move(unwritten_.front());
    unwritten_.pop_front();
    changed_.notify_all();
    return piece;
  }

  const BatchSteps& steps_;
  const std::size_t limit_;
  std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<std::shared_ptr<Piece>> waiting_;    ///< nobody works on them yet
  std::deque<std::shared_ptr<Piece>> unwritten_;  ///< in the order of reading
  std::exception_ptr fault_;
  bool ended_ = false;
  bool stopped_ = false;
};

}  // namespace

void runInOrder(const BatchSteps& steps, unsigned jobs) {
  if (jobs <= 1) {
    while (const auto block = steps.read()) steps.write(steps.work(*block));
    return;
  }
  Pipeline pipeline(steps, jobs);
  {
    std::vector<std::jthread> threads;
    pipeline.reading([&] {
      const auto start = [&](auto side) { threads.emplace_back([&, side] { pipeline.guarded(side); }); };
      try {
        start([&] { pipeline.write(); });
        for (unsigned i = 0; i < jobs; ++i) start([&] { pipeline.work(); });
      } catch (const std::system_error&) {
        throw failure("the system does not start " + std::to_string(jobs + 1) + " threads; give fewer --jobs");
      }
      pipeline.read();
    });
  }
  pipeline.rethrow();
}

}  // namespace moistair
