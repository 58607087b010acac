#pragma once

#include "gfx/picture/gfx.h"
#include "gfx/sprite/showncopy.h"
#include "utils/rect.h"
#include "utils/smartptr/smartptr.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace vask {

class CSpriteLayer;
class CXmlContext;

// A picture at a position on the screen, with a depth, an alpha, a rotation and a name. Sprites
// report their changes to the layer that they are in; each frame only what changed is drawn again.
// A layer does not own its sprites: whoever made them does. A sprite leaves its layer when it dies.
//
//     CSpritePtr door(CSpriteFactory::GetSingletonPtr()->Load("door.xml"));
//     door->SetPosition(0, -10);
class CSprite {
 public:
  // What has happened since the sprite was drawn last.
  enum EDirtyState : int { kUnchanged = 0, kChangedInPlace = 1, kMoved = 2 };
  using DeathHook = void (*)(const CSprite* sprite);

  CSprite();
  CSprite(const CSprite&) = delete;
  CSprite& operator=(const CSprite&) = delete;

  virtual ~CSprite();
  // Called with each sprite that dies, so that a layer above can let go of it; null for none.
  static void SetDeathHook(DeathHook hook);

  virtual int GetTypeId() const;
  // Whether there is no picture.
  virtual bool IsEmpty() const;
  // Reads or writes the fields of a sprite file.
  virtual void Serialize(CXmlContext& xml);
  virtual std::string GetName() const;
  virtual void SetName(const std::string& name);
  // The upper left corner, in pixels of the layer.
  virtual void SetX(int x);
  virtual void SetY(int y);
  // The depth: sprites with lower values are drawn over it.
  virtual void SetZ(int z);
  virtual void SetRect(const CRect<int>& rect);
  virtual int GetX() const;
  virtual int GetY() const;
  virtual int GetZ() const;
  virtual CRect<int> GetRect() const;
  // The part of the loaded picture that is shown, cut to the picture.
  virtual void SetImageRect(const CRect<int>& rect);
  virtual CRect<int> GetImageRect() const;
  // The part of the layer outside which nothing of the sprite is shown; all zero when unset.
  virtual void SetScrollRect(const CRect<int>& rect);
  virtual CRect<int> GetScrollRect() const;
  // Drawing by save-under; docs/architecture.md has the order of the steps. The canvas may be null,
  // which draws nothing.
  virtual void PaintPart(CSprite* canvas, const CRect<int>& clip);
  virtual void Paint(CSprite* canvas);
  virtual void RestoreBackground(CSprite* canvas);
  virtual void SaveBackground(CSprite* canvas);
  // When the sprite is painted on the canvas: restores its background and makes a repaint due.
  virtual void CheckOverlap(CSprite* canvas);
  // Saves the background and paints, when a repaint is due; returns whether it painted.
  virtual bool Draw(CSprite* canvas);
  // Hidden sprites leave their layer and come back to it.
  virtual void SetVisible(bool visible);
  virtual void SetSize(int width, int height);
  // Degrees, counter-clockwise; changes of half a degree or less are ignored. The picture of a
  // whole turn is a little larger than the loaded one.
  virtual void SetRotation(float degrees);
  virtual void SetAlpha(int alpha);
  virtual int GetAlpha() const;
  virtual void SetPosition(int x, int y);
  // Hooks of animated and text sprites; nothing here.
  virtual void PlayAnimation(const std::string& name);
  virtual void SetText(const std::string& text);
  // Leaves the old layer and joins the new one (null: none).
  virtual void SetParent(CSpriteLayer* layer);
  virtual void SetOwnsBackBuffer(bool owns);
  // Reports a change to the layer; called before the change is made.
  virtual void MarkChanged();
  // Takes ownership of the picture, unless it is static or the screen, and shows it plain: size,
  // rotation and alpha are reset. Null is the null picture.
  virtual void SetImage(IPixel* image);
  // An EDirtyState.
  virtual int GetDirtyState() const;
  // 1: the rectangle where it was drawn last; otherwise the current one.
  virtual CRect<int> GetRectFor(int which) const;
  // What is shown. Who draws on it has to call MarkChanged before.
  virtual IPixel* GetImage() const;

  // The layer it is drawn in; null while hidden or unattached.
  CSpriteLayer* GetParent() const { return myParent; }
  float GetRotation() const { return myRotation; }

 protected:
  friend class CSpriteLayer;

  // For derived classes that draw on their loaded picture. `ImageChanged` makes the shown copy
  // again after its pixels were changed; `ReplaceImage` takes ownership of another picture, shown
  // at its own size but rotated and faded as before. Both report a change.
  IPixel* LoadedImage() const;
  void ImageChanged();
  void ReplaceImage(IPixel* image);

  // Drops the saved background and makes a repaint due: the layer, or the surface below the sprite,
  // is a new one.
  virtual void ForgetBackground();
  // Leaves the layer, visible or hidden. A derived layer calls it before its children are orphaned.
  void LeaveLayer();

 private:
  // Off: its background is restored, or was never saved; the next pass paints it.
  enum EPaintState : int { kPainted = 0, kOffCanvas = 2 };
  // The screen and the null picture are only borrowed.
  struct SImageRelease {
    SImageRelease() : borrowed(false) {}
    explicit SImageRelease(bool isBorrowed) : borrowed(isBorrowed) {}
    void operator()(IPixel* image) const {
      if (!borrowed) {
        Gfx::FreeImage(image);
      }
    }
    bool borrowed;
  };

  void TakeLoaded(IPixel* image);
  void ShowImage();
  void RenewCopy() const;
  // What of the canvas the picture shows on: that much is saved and painted.
  CRect<int> PaintedPart(const CRect<int>& canvas) const;
  // False when no such buffer can be made.
  bool FitBackBuffer(int width, int height);
  void ReadFields(CXmlContext& xml);
  void WriteFields(CXmlContext& xml);

  CSpriteLayer* myParent = nullptr;
  CSpriteLayer* myHiddenParent = nullptr;
  // What is shown: the copy, or the loaded picture; never null.
  mutable IPixel* myImage;
  // Sized, rotated and faded; null while the loaded picture is shown plain.
  mutable Gfx::ImagePtr myCopy;
  std::optional<CRect<int>> mySolidPart;  // of what is shown; null until it is painted unchanged
  mutable bool myIsCopyOld = false;       // of the right size, but to be renewed before it is shown
  std::unique_ptr<IPixel, SImageRelease> myOriginalImage;  // as loaded; null before the first
  Gfx::ImagePtr myBackBuffer;
  bool myOwnsBackBuffer = true;
  // The part of the canvas that is saved in the back buffer, from its corner on; empty for none.
  CRect<int> mySavedArea;
  CRect<int> myRect;
  std::unique_ptr<CRect<int>> myScrollRect;
  int myZ = 100;
  std::uint8_t myAlpha = 255;
  float myRotation = 0.0F;
  bool myIsRotated = false;  // by SetRotation: whole turns count too, as they change the picture
  std::optional<SShownLook::SSize> mySize;  // that SetSize asked for, before rotation
  EPaintState myDirtyState = kPainted;
  CRect<int> myLastRect;
  bool myInDirtyList = false;
  std::string myName;
};

// Sprites of every kind are shared under this one pointer type.
using CSpritePtr = CSmartPtr<CSprite>;

}  // namespace vask
