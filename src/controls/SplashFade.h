#pragma once
// The steps of a splash window's fade: the opacity from the time elapsed
// since the fade began. The clock is injected, so the window steps it from a
// timer and tests step it by hand without waiting.

#include <chrono>
#include <functional>

class SplashFade {
public:
  using Clock = std::function<std::chrono::steady_clock::time_point()>;

  static constexpr int kFadeInMilliseconds = 500;
  static constexpr int kFadeOutMilliseconds = 200;

  // A fade from transparent to opaque (`in`) or back, over `duration`.
  SplashFade(bool in, std::chrono::milliseconds duration, Clock clock);

  // The opacity now, 0 (invisible) to 255, rising or falling linearly.
  unsigned char Alpha() const;
  bool Finished() const;

private:
  bool mIn;
  std::chrono::milliseconds mDuration;
  Clock mClock;
  std::chrono::steady_clock::time_point mStart;
};
