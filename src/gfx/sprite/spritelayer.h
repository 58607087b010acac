#pragma once

#include "designpatterns/walklist.h"
#include "gfx/sprite/sprite.h"

#include <vector>

namespace vask {

// A sprite that holds others (not owned), sorted by depth, and paints them onto its canvas. The
// list runs from the front (smallest depth) to the back; drawing runs from the back.
//
// What makes it exact: on the canvas, the sprites that are painted always lie behind all those that
// are not. Before a sprite changes, everything in front of it is therefore taken off, front to
// back, each putting back what it had covered; the next pass paints what is missing, back to front.
//
// A layer within a layer paints onto the canvas of its parent, at the parent's coordinates.
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
  // A visible or a hidden child.
  virtual void RemoveChild(CSprite* sprite);
  // Keep the depth mark at the greatest depth that must be repainted.
  virtual void RaiseDepthMark(int z);
  virtual int GetDepthMark() const;
  // A child tells of a change that is about to come.
  virtual void AddDirty(CSprite* sprite);
  // The sprite that stands for the surface the layer paints on; not owned.
  virtual void SetCanvas(CSprite* canvas);
  // Null for none.
  virtual CSprite* GetCanvas() const;
  virtual void HideChild(CSprite* sprite);
  virtual void ShowChild(CSprite* sprite);

  const std::vector<CSprite*>& GetChildren() const { return myChildren.Items(); }

 protected:
  void ForgetBackground() override;

 private:
  friend class CSprite;

  // Puts back what the sprites in front of a child, and then the child itself, have covered.
  void RestoreDownTo(CSprite* sprite);
  // Off the canvas and out of the depth order; and back by its depth.
  void Detach(CSprite* sprite);
  void InsertByDepth(CSprite* sprite);
  bool IsInside(const CSprite* sprite) const;
  static void Orphan(CSprite* sprite);

  CWalkList<CSprite> myChildren;
  CWalkList<CSprite> myHiddenChildren;
  CSprite* myCanvas = nullptr;
  int myDepthMark;
};

}  // namespace vask
