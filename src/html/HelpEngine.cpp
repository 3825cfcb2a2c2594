#include "html/HelpEngine.h"

#include "utl/Log.h"
#include "utl/Utf.h"

namespace {

// Compiled help has no viewer on this platform until one is installed.
class UnavailableHelpEngine : public HelpEngine {
public:
  bool IsAvailable() const override { return false; }

  bool Execute(HelpRequest const & request) override {
    Log::WriteMessage("UnavailableHelpEngine", "Execute",
                      "Help is not available: no help viewer is installed (command " +
                          std::to_string(static_cast<unsigned>(request.command)) + ", path \"" +
                          vx3::WideToUtf8(request.path) + "\")",
                      Log::Notice, false);
    return false;
  }
};

std::unique_ptr<HelpEngine> & CurrentEngine() {
  static std::unique_ptr<HelpEngine> engine = std::make_unique<UnavailableHelpEngine>();
  return engine;
}

}  // namespace

std::unique_ptr<HelpEngine> VxSetHelpEngine(std::unique_ptr<HelpEngine> engine) {
  std::unique_ptr<HelpEngine> previous = std::move(CurrentEngine());
  CurrentEngine() = engine ? std::move(engine) : std::make_unique<UnavailableHelpEngine>();
  return previous;
}

HelpEngine & VxGetHelpEngine() { return *CurrentEngine(); }
