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

// A picture at a place on the screen, with a depth, an alpha, a rotation and a name. Sprites report
// their changes to the layer they live in; each frame only what changed is drawn again. A layer
// does not own its sprites: the creator does, and a sprite leaves its layer when it dies.
//
//   CSmartPtr<CSprite> door(CSpriteFactory::GetSingletonPtr()->Load("data/gfx/oven.xml"));
//   door->SetPosition(0, -100);
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
  // The top-left corner, in pixels of the layer.
  virtual void SetX(int x);
  virtual void SetY(int y);
  // Greater is further back; lower values are drawn over it.
  virtual void SetZ(int z);
  virtual void SetRect(const CRect<int>& rect);
  virtual int GetX() const;
  virtual int GetY() const;
  virtual int GetZ() const;
  virtual CRect<int> GetRect() const;
  // The part of the loaded picture that is shown.
  virtual void SetImageRect(const CRect<int>& rect);
  virtual CRect<int> GetImageRect() const;
  // The part of the layer outside which nothing of the sprite is shown; all zero when unset.
  virtual void SetScrollRect(const CRect<int>& rect);
  virtual CRect<int> GetScrollRect() const;
  virtual void PaintPart(CSprite* canvas, const CRect<int>& clip);
  virtual void Paint(CSprite* canvas);
  virtual void RestoreBackground(CSprite* canvas);
  virtual void SaveBackground(CSprite* canvas);
  // Restores the background and asks for a repaint when the sprite lies on the canvas.
  virtual void CheckOverlap(CSprite* canvas);
  // Paints when a repaint is due; answers whether it painted.
  virtual bool Draw(CSprite* canvas);
  // Hidden sprites leave their layer and come back to it.
  virtual void SetVisible(bool visible);
  virtual void SetSize(int width, int height);
  // Degrees, counter-clockwise; changes of half a degree or less are ignored. A whole turn is one
  // as well, and its picture a little larger than the loaded one.
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
  // Tells the layer of a change that is about to come.
  virtual void MarkChanged();
  // Takes over the picture, which becomes loaded and shown: plain, without size, rotation and
  // alpha.
  virtual void SetImage(IPixel* image);
  // An EDirtyState.
  virtual int GetDirtyState() const;
  // 1: where it was drawn last; otherwise where it is.
  virtual CRect<int> GetRectFor(int which) const;
  virtual IPixel* GetImage() const;

  // The layer it is drawn in; null while hidden or unattached.
  CSpriteLayer* GetParent() const { return myParent; }
  float GetRotation() const { return myRotation; }

 protected:
  friend class CSpriteLayer;

  // For kinds that draw on their loaded picture themselves. `ImageChanged` makes the shown copy
  // again after new pixels; `ReplaceImage` takes over another picture, shown at its own size but
  // rotated and faded as before. Both tell the layer.
  IPixel* LoadedImage() const;
  void ImageChanged();
  void ReplaceImage(IPixel* image);

  // What was saved from under the sprite is worthless, and it must be painted: its layer or the
  // surface below it is a new one.
  virtual void ForgetBackground();
  // Out of the layer, visible or hidden; derived layers do so while their children still answer.
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
  void RenewCopy();
  CRect<int> ShownPart(const CRect<int>& canvas) const;
  // False when no such buffer can be made.
  bool FitBackBuffer(int width, int height);
  void ReadFields(CXmlContext& xml);
  void WriteFields(CXmlContext& xml);

  CSpriteLayer* myParent = nullptr;
  CSpriteLayer* myHiddenParent = nullptr;
  IPixel* myImage;       // what is shown: the copy, or the loaded picture; never null
  Gfx::ImagePtr myCopy;  // sized, rotated and faded; null while the loaded picture is shown plain
  std::unique_ptr<IPixel, SImageRelease> myOriginalImage;  // as loaded; null before the first
  Gfx::ImagePtr myBackBuffer;
  bool myOwnsBackBuffer = true;
  // What of the canvas the upper left of the back buffer holds; empty while it holds nothing.
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
