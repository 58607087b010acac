#pragma once

#include "designpatterns/walklist.h"
#include "gfx/sprite/sprite.h"

#include <cstddef>
#include <utility>
#include <vector>

namespace vask {

// A sprite that holds others (not owned), sorted by depth, and paints them onto its canvas by
// save-under. The list runs from the front (smallest depth) to the back; painting runs from the
// back to the front.
//
// Invariant: no painted sprite is in front of one that is off the canvas. So before a sprite
// changes, it and all sprites in front of it restore their backgrounds, from the front to the back;
// the next pass paints them again.
//
// A layer within a layer paints onto the canvas of its parent, in the parent's coordinates.
//
//     CSpriteLayer signs;
//     signs.SetZ(50);
//     signs.SetParent(CScreenLayer::GetSingletonPtr());
//     signs.AddChild(door.Get());
class CSpriteLayer : public CSprite {
 public:
  CSpriteLayer();
  // Orphans its children, visible and hidden.
  ~CSpriteLayer() override;

  int GetTypeId() const override;
  void CheckOverlap(CSprite* canvas) override;
  bool Draw(CSprite* canvas) override;

  // Among sprites of equal depth a new child is drawn over the older ones. A sprite leaves the
  // layer that it was in; a layer cannot be put into itself.
  virtual void AddChild(CSprite* sprite);
  // Removes a visible or a hidden child; does nothing for other sprites.
  virtual void RemoveChild(CSprite* sprite);
  // The depth mark: the greatest depth that must be repainted.
  virtual void RaiseDepthMark(int z);
  virtual int GetDepthMark() const;
  // A child reports a change that is about to be made.
  virtual void AddDirty(CSprite* sprite);
  // The sprite whose picture is the surface that the layer paints on; not owned, null for none.
  virtual void SetCanvas(CSprite* canvas);
  virtual CSprite* GetCanvas() const;
  virtual void HideChild(CSprite* sprite);
  virtual void ShowChild(CSprite* sprite);

  const std::vector<CSprite*>& GetChildren() const { return myChildren.Items(); }
  // What is below a child that was painted could not be saved: the outermost layer has to paint all
  // anew.
  void LoseBackground();

 protected:
  void ForgetBackground() override;
  // Returns whether a background of it, or of a layer on it, was lost since the last call.
  bool TakeLostBackground() { return std::exchange(myHasLostBackground, false); }

 private:
  friend class CSprite;

  // Restores the backgrounds of all children in front of a child, then that of the child itself.
  void RestoreDownTo(CSprite* sprite);
  // Takes the frontmost child that may still be painted off the canvas.
  void LiftNext(CSprite* canvas);
  // Restores down to the child and takes it out of the depth order; and puts it back by its depth.
  void Detach(CSprite* sprite);
  void InsertByDepth(CSprite* sprite);
  bool IsInside(const CSprite* sprite) const;
  static void Orphan(CSprite* sprite);

  CWalkList<CSprite> myChildren;
  CWalkList<CSprite> myHiddenChildren;
  CSprite* myCanvas = nullptr;
  bool myHasLostBackground = false;
  int myDepthMark;
  // So many children, from the front on, are off the canvas until the next pass. They are not
  // visited again, so that a frame in which all move costs each of them one visit.
  std::size_t myLiftedCount = 0;
};

}  // namespace vask
