// Forward declarations of the library's classes, and the names it borrows from the platform.
#pragma once

#include <dg/Box.h>
#include <dg/Color.h>
#include <dg/Matrix.h>
#include <dg/Point.h>
#include <du/SmartPtr.h>
#include <du/Symbol.h>
#include <figk/Fwd.h>

namespace attrs {
class FillAttr;
class TextAttr;
}  // namespace attrs

namespace dom {
class MessageReader;
class ObserverProxy;
}  // namespace dom

namespace zv2d {
class Attributes;
class Definition;
class Instance;
class LineAttributes;
class Texture;
}  // namespace zv2d

namespace zvk {
class Operation;
class ReadWriteLock;
class SerializedContentElement;
}  // namespace zvk

namespace zvmk {
class FigureContentShadow;
}

namespace figrep {

using dg::Color;
using dg::DBox2D;
using dg::DMat33;
using dg::DPoint2D;
using dg::DVec2;
using du::ConstSmartPtr;
using du::SmartPtr;
using du::Symbol;

// Figure core.
class AbstractFigureItem;
class AbstractFigureVisitor;
class AbstractKernelToFigureFactory;
class Figure;
class FigureChangedEvent;
class FigureItemsChangedEvent;
class FigureLink;
class FigureObserver;
class FindFigureItemVisitor;
class GraphicalFigureItem;
class KernelToFigureFactory;
class SchematicFigureItemsContainer;
class TreeEntryComparator;
class TreeInterface;

// Block-like instances.
class BaseBlockInstance;
class BlockInstance;
class CableInstance;
class Miscellaneous;
class TableInstance;

// Connectivity.
class ConnectionNode;
class ConnectorInstance;
class ConnectorInstanceNode;
class FixConnectivity;
class HighwayNode;
class HighwaySegment;
class JunctionNode;
template <class T>
class KdTree;
class NetSegment;
class Port;
class PortNode;
class Segment;
class SubHighway;
class SubNet;
class TidyJunctionsVisitor;
class UnroutedConnection;
class VisitCheck;

// Settings and attributes.
class AttributeList;
class ItemAttrInfo;
class Setting;
class SettingList;
class SettingListVisitor;

// Graphics.
class ArrowInfo;
class ArrowPatternGenerator;
class BaseGraphic;
class CalcFigureExtentsVisitor;
class CrossingPoint;
class CrossingPointsVisitor;
class Format;
class GenericGraphic;
class GraphicGroup;
class GraphicGroupMember;
class PickGraphicProxy;
class RenderInfo;
class SegmentGraphicsGenerator;
class TextGraphic;
class TextLabelContainer;
class TextLabelContainerGroup;
class TextLabelContainerVisitor;
class TitleBlock;
class TitleBlockGraphicsGenerator;
class TitleBlockTextSection;
class TokenInterpreter;
class TokenObserver;

// Deltas.
class AbstractFigureDelta;
class BrokenConnectionRecord;
class DeltaVertexNode;
class FigureConnectionsDelta;
class FigureDeltaReceiverInterface;
class FigureItemDeleteDelta;
class FigureItemSettingDelta;
class FigureMoveDelta;
class FigureSettingDelta;
class FigureSheetDelta;
class FigureSheetDeltaGenerator;
class FigureSubNetDelta;
class MapGroupContent;
class MapWireContent;
class MirrorAction;
class PublishTitleBlockDelta;
class RotateAction;
class ScaleAction;
class TransformAction;

// Operations.
class BackgroundColorOperationStep;
class FitContentOperationStep;
class SettingOperationStep;
class UnhideAllOperationStep;
class VisibilityOperationStep;

// Queries.
class DebugConnectivityVisitor;
class DebugSettingsVisitor;
class FigureItemsVisitor;
class FindFigurePortVisitor;
class GetFigureContentVisitor;
class GetHiddenContentVisitor;

// The process-wide record of ports.
class SchematicRepresentation;

}  // namespace figrep
