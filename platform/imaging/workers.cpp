#include "platform/imaging/workers.h"

#include <algorithm>
#include <chrono>
#include <system_error>

namespace morvantile {
namespace {

// How long a call stays awake for the workers to return: to be woken takes as long.
constexpr std::chrono::microseconds kPatience{100};

}  // namespace

Workers::Workers(int count) {
  try {
    for (int i = 0; i < count; ++i) {
      threads_.emplace_back([this](const std::stop_token& end) { Serve(end); });
    }
  } catch (const std::system_error&) {
    // Fewer threads do the same work.
  }
}

void Workers::Run(int helpers, const std::function<void(int)>& work) {
  helpers = std::min(helpers, static_cast<int>(threads_.size()));
  if (helpers < 1 || busy_.exchange(true)) {
    work(0);
    return;
  }
  {
    const std::lock_guard lock(mutex_);
    work_ = &work;
    wanted_ = helpers;
    next_ = 1;
  }
  for (int i = 0; i < helpers; ++i) wake_.notify_one();
  work(0);
  std::unique_lock lock(mutex_);
  wanted_ = 0;
  lock.unlock();
  const auto patience = std::chrono::steady_clock::now() + kPatience;
  while (running_ > 0 && std::chrono::steady_clock::now() < patience) std::this_thread::yield();
  lock.lock();
  done_.wait(lock, [this] { return running_ == 0; });
  busy_ = false;
}

void Workers::Serve(const std::stop_token& end) {
  std::unique_lock lock(mutex_);
  while (wake_.wait(lock, end, [this] { return wanted_ > 0; })) {
    --wanted_;
    ++running_;
    const int number = next_++;
    lock.unlock();
    (*work_)(number);
    lock.lock();
    if (--running_ == 0) done_.notify_one();
  }
}

}  // namespace morvantile
