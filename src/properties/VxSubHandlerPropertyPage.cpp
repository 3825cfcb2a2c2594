#include "properties/VxSubHandlerPropertyPage.h"

#include "properties/VxSubPropertyPage.h"

VxSubHandlerPropertyPage::VxSubHandlerPropertyPage(unsigned frameId, unsigned templateId,
                                                   unsigned captionId,
                                                   BasePropertyPageHelper * helper,
                                                   unsigned helpTopic)
    : VxPropertyPage(templateId, captionId, helper, helpTopic), mFrameId(frameId) {
  Bind(wxEVT_SIZE, [this](wxSizeEvent & event) {
    // The page stands before its window's own layout: arrange first, so that
    // the frame is where the inner page goes.
    if (CResizableLayout * layout = Layout()) layout->ArrangeLayout();
    PlaceSubPage();
    event.Skip();
  });
}

VxSubHandlerPropertyPage::~VxSubHandlerPropertyPage() { SetSubPage(nullptr); }

void VxSubHandlerPropertyPage::SetSubPage(VxSubPropertyPage * page) {
  if (page == mSubPage) return;
  if (mSubPage != nullptr) {
    mSubPage->DestroyPageWindow();
    mSubPage->mOuter = nullptr;
  }
  mSubPage = page;
  if (mSubPage != nullptr) mSubPage->mOuter = this;
  ShowSubPage();
}

bool VxSubHandlerPropertyPage::OnInitDialog() {
  bool const filled = VxPropertyPage::OnInitDialog();
  AddAnchor(static_cast<int>(mFrameId), TOP_LEFT, BOTTOM_RIGHT);
  ShowSubPage();
  return filled;
}

bool VxSubHandlerPropertyPage::OnSetActive() {
  bool const active = VxPropertyPage::OnSetActive();
  if (mSubPage != nullptr && mSubPage->GetSafeHwnd() != nullptr) {
    mSubPage->GetSafeHwnd()->Show();
    mSubPage->OnSetActive();
  }
  return active;
}

bool VxSubHandlerPropertyPage::OnKillActive() {
  if (mSubPage != nullptr && mSubPage->GetSafeHwnd() != nullptr) {
    if (!mSubPage->OnKillActive()) return false;
    mSubPage->GetSafeHwnd()->Hide();
  }
  return VxPropertyPage::OnKillActive();
}

bool VxSubHandlerPropertyPage::OnApply() {
  if (VxPropertyPage::OnApply()) return true;
  if (mSubPage != nullptr) OnSetActive();
  return false;
}

void VxSubHandlerPropertyPage::OnDestroy() {
  if (mSubPage != nullptr) mSubPage->DestroyPageWindow();
}

void VxSubHandlerPropertyPage::ShowSubPage() {
  if (mSubPage == nullptr || GetSafeHwnd() == nullptr || !IsBuilt()) return;
  if (mSubPage->GetSafeHwnd() == nullptr) {
    mSubPage->CreatePageWindow(GetSafeHwnd());
    mSubPage->BuildControls();
  }
  PlaceSubPage();
  mSubPage->GetSafeHwnd()->Show();
}

void VxSubHandlerPropertyPage::PlaceSubPage() {
  wxWindow * frame = GetDlgItem(static_cast<int>(mFrameId));
  if (mSubPage == nullptr || frame == nullptr || mSubPage->GetSafeHwnd() == nullptr) return;
  mSubPage->GetSafeHwnd()->SetSize(frame->GetRect());
  mSubPage->GetSafeHwnd()->Raise();
}
