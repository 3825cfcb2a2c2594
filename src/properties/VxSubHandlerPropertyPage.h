#pragma once
// A property page that shows one of several inner pages (VxSubPropertyPage)
// over a frame control of its template, e.g. the settings of the kind of
// item chosen above the frame. The inner page follows the frame's place and
// size, shows while the outer page is active and goes with its window.

#include "properties/VxPropertyPage.h"

class VxSubPropertyPage;

class VxSubHandlerPropertyPage : public VxPropertyPage {
public:
  VxSubHandlerPropertyPage(unsigned frameId, unsigned templateId, unsigned captionId = 0,
                           BasePropertyPageHelper * helper = nullptr,
                           unsigned helpTopic = kNoHelpTopic);
  ~VxSubHandlerPropertyPage() override;

  // Shows `page` (null: none) instead of the present inner page, whose
  // window goes.
  void SetSubPage(VxSubPropertyPage * page);
  VxSubPropertyPage * GetSubPage() const { return mSubPage; }
  unsigned GetFrameID() const { return mFrameId; }

  bool OnInitDialog() override;
  bool OnSetActive() override;
  bool OnKillActive() override;
  // On a refusal the inner page stays shown.
  bool OnApply() override;

protected:
  void OnDestroy() override;

private:
  void ShowSubPage();
  void PlaceSubPage();

  VxSubPropertyPage * mSubPage = nullptr;
  unsigned mFrameId;
};
