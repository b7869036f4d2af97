// How the clipboard's picture outlives the program.

#ifndef MORVANTILE_PLATFORM_QT_CLIPBOARD_STAY_BEHIND_H
#define MORVANTILE_PLATFORM_QT_CLIPBOARD_STAY_BEHIND_H

namespace morvantile {

// On most desktops the clipboard's content lives in the program that put it there. So the process
// splits in two before anything has started: the first half is the one that the user started and
// only waits; the second half is the run and, after it, the owner of the clipboard.
class StayBehind {
 public:
  // Splits the process. Only the second half returns from here; the first ends the process with the
  // status of the run. It takes the second half with it if it is killed before that. Must be called
  // before there is any thread or connection. If the system refuses to split, the process stays
  // one.
  StayBehind();
  StayBehind(const StayBehind&) = delete;
  StayBehind& operator=(const StayBehind&) = delete;

  // Ends the first half with `status`, and makes this half independent of terminal, working folder
  // and parent. It appears as "morvantile-keep" in the list of processes from then on.
  void LetGo(int status);

 private:
  int report_to_ = -1;
};

}  // namespace morvantile

#endif  // MORVANTILE_PLATFORM_QT_CLIPBOARD_STAY_BEHIND_H
