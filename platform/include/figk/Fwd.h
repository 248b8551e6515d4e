// Forward declarations of the schematic kernel's bases and records, and the platform names they
// use.
#pragma once

#include <du/SmartPtr.h>
#include <du/Symbol.h>

namespace zv2d {
class Instance;
}

namespace zvk {
class ReadWriteLock;
class SerializedContentElement;
}  // namespace zvk

namespace figk {

using du::ConstSmartPtr;
using du::SmartPtr;
using du::Symbol;

// Bases.
class AbstractDelta;
class AbstractDeltaGenerator;
class AbstractDeltaReceiver;
class AbstractItem;
class AbstractVisitor;
class ArrowStyle;
class Attribute;
class BaseConnectionNode;
class BaseSettingValue;
class BaseVisitCheck;
class ConnectionNode;
class FirstVisitCheck;
class GetSheetVisitor;
class GraphicGroupMember;
class Group;
class GroupMember;
class Setting;
class SettingList;
class SettingListVisitor;
class TextLabelContainer;
class TypeDefinitions;
class Zv2dGraphics;

// Records.
class BaseBlockInstance;
class BaseGraphic;
class BlockInstance;
class CableInstance;
class ConnectorInstance;
class ConnectorInstanceNode;
class Design;
class Format;
class GenericGraphic;
class GraphicGroup;
class Highway;
class HighwayNode;
class HighwaySegment;
class JunctionNode;
class Miscellaneous;
class Net;
class NetSegment;
class Port;
class PortNode;
class SchematicKernel;
class Segment;
class Sheet;
class SubHighway;
class SubNet;
class TableInstance;
class TextGraphic;
class TitleBlock;
class TitleBlockTextSection;

}  // namespace figk
