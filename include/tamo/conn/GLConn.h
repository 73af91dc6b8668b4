// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <tamo/Export.h>
#include <tamo/conn/GLPolygonDesc.h>
#include <tamo/neighborhood/NhProp.h>
#include <tamo/objects/GLObjectList.h>

#include <vector>

/// Builds the polygons of all 256 cell configurations by cases of adjacency.
///
/// Every pair of a foreground and a background component of a configuration gets the surface that separates them: its
/// vertices are the midpoints of the links, common to both adjacencies, that lead from the one to the other. The shape
/// of the components selects a handler, which orders the vertices into polygons. One instance serves one thread at a
/// time.
class TAMO_EXPORT GLConn : public NhProp {
  public:
    /// Sets up the adjacency system `config`, as `setupConn` does.
    GLConn(Neighborhood::NHConfig config = N6);
    GLConn(GLConn const&) = default;
    GLConn& operator=(GLConn const&) = default;
    ~GLConn() override;

    /// Sets up adjacency, link properties and case table. Always returns true; a `TamoException` on the way is reported
    /// on standard error as: cought exception:"its message". Throws `std::bad_alloc`.
    bool setupConn(Neighborhood::NHConfig config);

    /// Replaces the contents of `list`, which must not be null, by the 256 objects of the system `config`; slots 0 and
    /// 255 stay empty. With `recomputeNormals` the normals follow the polygons' geometry, without it the links'
    /// directions. Reports a pair of components without a common link on standard error.
    ///
    /// Throws `std::bad_alloc`; `list` is then unchanged where the set-up failed. Otherwise it holds the objects of the
    /// first configurations, possibly none, of which the last may lack polygons or recomputed normals.
    void wrapLocal(Neighborhood::NHConfig config, GLObjectList* list, bool recomputeNormals);

  private:
    /// Names the shape of a component of corners; the value is the low byte of a case word.
    enum CaseCode : unsigned int {
        kDefaultCase = 0,
        kEdgeCase = 1,
        kFaceDiagonalCase = 2,
        kSpaceDiagonalCase = 4,
        kPixelCase = 8,
        kCase7 = 16,
        kCase25 = 32,
        kCase27 = 64,
        kCase41 = 128,
        kCodeBits = 0xff,
        kInverted = 0x800,
    };

    static unsigned char const _case7[24];
    static unsigned char const _case25[24];
    static unsigned char const _case27[24];
    static unsigned char const _case41[3];
    static unsigned char const _case75[9];
    static float const _epsilon;

    /// Prints entry i of the case table on standard output, without a line end.
    void printCaseLut(int i);
    /// Collects the vertices between the components `fg` and `bg`; returns the union of their information words.
    unsigned int getPolygonDesc(GLPolygonDesc& desc, unsigned char fg, unsigned char bg);

    /// Selects the handler for the pair of components and returns its result.
    bool sortCCW(GLObject* obj, GLPolygonDesc& desc, unsigned int vinfo, unsigned char fg, unsigned char bg);

    // Handlers: each appends the polygons between the components `fg` and `bg` to `obj`. `vinfo` is the union of the
    // vertices' information words; `inv` is set where the case was found as the complement of a listed shape, `sdiag`
    // where the cell centre is a vertex. They return false, with a line on standard error, where no suitable vertex is
    // found.
    bool handleDefault(GLObject* obj, GLPolygonDesc& desc, unsigned int vinfo, unsigned char fg, unsigned char bg,
                       bool inv, bool sdiag);
    bool handlePixel(GLObject* obj, GLPolygonDesc& desc, unsigned int vinfo, unsigned char fg, unsigned char bg,
                     bool inv, bool sdiag);
    bool handleCEdge(GLObject* obj, GLPolygonDesc& desc, unsigned int vinfo, unsigned char fg, unsigned char bg,
                     bool inv, bool sdiag);
    bool handleCFDiag(GLObject* obj, GLPolygonDesc& desc, unsigned int vinfo, unsigned char fg, unsigned char bg,
                      bool inv, bool sdiag);
    bool handleCSDiag(GLObject* obj, GLPolygonDesc& desc, unsigned int vinfo, unsigned char fg, unsigned char bg,
                      bool inv, bool sdiag);
    bool handleC7(GLObject* obj, GLPolygonDesc& desc, unsigned int vinfo, unsigned char fg, unsigned char bg, bool inv,
                  bool sdiag);
    bool handleC25(GLObject* obj, GLPolygonDesc& desc, unsigned int vinfo, unsigned char fg, unsigned char bg, bool inv,
                   bool sdiag);
    bool handleC27(GLObject* obj, GLPolygonDesc& desc, unsigned int vinfo, unsigned char fg, unsigned char bg, bool inv,
                   bool sdiag);
    bool handleC41(GLObject* obj, GLPolygonDesc& desc, unsigned int vinfo, unsigned char fg, unsigned char bg, bool inv,
                   bool sdiag);

    std::vector<unsigned char> _fgObjects;
    std::vector<unsigned char> _bgObjects;
    std::vector<unsigned int> _caseLut;
};
