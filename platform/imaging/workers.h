// Threads that share out the work of one call.

#ifndef MORVANTILE_PLATFORM_IMAGING_WORKERS_H
#define MORVANTILE_PLATFORM_IMAGING_WORKERS_H

#include <atomic>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <stop_token>
#include <thread>
#include <vector>

namespace morvantile {

// Threads that sleep until there is work. Any thread may call Run; while one call is at work,
// others get no help and do their work alone.
class Workers {
 public:
  // Starts `count` threads, or as many as the system lets it.
  explicit Workers(int count);
  ~Workers() = default;
  Workers(const Workers&) = delete;
  Workers& operator=(const Workers&) = delete;

  // Calls `work` with 0 on the calling thread and, at the same time, with 1, 2 and so on up to
  // `helpers` on as many workers as are awake in time: the work must be done whichever take part.
  // Returns when all these calls have returned. `work` must not throw.
  void Run(int helpers, const std::function<void(int)>& work);

 private:
  void Serve(const std::stop_token& end);

  std::atomic<bool> busy_ = false;  // some call has the workers' help
  std::mutex mutex_;
  std::condition_variable_any wake_;
  std::condition_variable done_;
  const std::function<void(int)>* work_ = nullptr;
  int wanted_ = 0;                // workers yet to join in
  int next_ = 1;                  // the number of the next to do so
  std::atomic<int> running_ = 0;  // workers that have joined in and not yet returned
  std::vector<std::jthread> threads_;
};

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_IMAGING_WORKERS_H
