#include "show/show_form.h"

#include <utility>

#include "process/process.h"

namespace quorvale {
namespace {

// Until `InitShow` sets another.
constexpr int kDesignInterval = 400;  // milliseconds

}  // namespace

ShowForm::ShowForm(Process& process, std::string name, WindowKind kind, std::string caption, Font font)
    : Form(process.app, std::move(name), kind, std::move(caption)),
      tmrSwitch(*this, "tmrSwitch", kDesignInterval),
      PicBase(*this, "PicBase", std::move(font)),
      PicPreview(PicBase, "PicPreview", true),
      imgFullSize(*this, "imgFullSize", false),
      process_(process) {
  imgFullSize.SetVisible(false);
  tmrSwitch.Elapsed = [this] { tmrSwitch_Timer(); };
}

}  // namespace quorvale
