// SPDX-License-Identifier: MIT
//
// rendertest: what the render tests share: the renderer and the model as a program finds them, and
// a look at the records of the face list.
//
// Callers   the GoogleTest programs of this folder that need no screen.
#pragma once

#include "viewpoints.h"

#include <gtest/gtest.h>

struct listface;

// A solved cube, no turn, no demo, the rear view on; an empty face list, and the identity as the
// matrix of what is emitted, so that records stay in model space.
class rendertest : public testing::Test {
  protected:
    void SetUp() override;
    void TearDown() override; // puts back what a test of another module may lean on
};

modelpoint centerof(const listface* face); // the average of its corners

// That the matrix taken last shows a point of model space where viewpoints.h sees it.
void expectseenasbytwin(const float (&point)[3]);

double distance(modelpoint a, modelpoint b);

// Draws one frame as the view does, without painting it; the records keep the order of emission.
void emitframe();
