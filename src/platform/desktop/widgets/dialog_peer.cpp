#include "platform/desktop/widgets/dialog_peer.h"

#include <QIcon>
#include <QPixmap>

#include "platform/desktop/widgets/artwork_image.h"

namespace quorvale {

void DialogPeer::SetVisible(bool visible) {
  if (visible == window_.isVisible()) return;
  if (visible) {
    window_.Appear();
  } else {
    window_.hide();
  }
}

void DialogPeer::SetIcon(const Artwork& icon) {
  QIcon sizes;
  for (const float scale : {0.5F, 1.0F, 2.0F, 4.0F}) {
    if (icon) sizes.addPixmap(QPixmap::fromImage(ToImage(icon, scale)));
  }
  window_.setWindowIcon(sizes);
}

}  // namespace quorvale
