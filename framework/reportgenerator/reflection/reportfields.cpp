#include <reportgenerator/reflection/reportfields.h>

#include <reportgenerator/reflection/schemafields.h>

#include <reportgenerator/reportbase/schema/reportbaseschema.h>

namespace ReportCore {

using REPORTGENERATOR::IRGObject;

namespace {

const ObjectInfo* FindBelow(const ObjectInfo& info, const QString& objectName)
{
    if (info.ObjectName() == objectName)
        return &info;
    for (const auto& field : info.All()) {
        const ObjectInfo* const found =
            field->HasObjects() ? FindBelow(field->Object(), objectName) : nullptr;
        if (found)
            return found;
    }
    return nullptr;
}

void VisitBelow(const IRGObject& object, const ObjectInfo& info, FieldPath& path, const FieldVisitor& visit);

void VisitItems(const IRGObject& parent, const Field& list, FieldPath& path, const FieldVisitor& visit)
{
    const int count = list.CountIn(parent);
    for (int i = 0; i < count; ++i) {
        path.SetIndex(i);
        visit(path, parent);
        VisitBelow(list.ItemIn(parent, i), list.Object(), path, visit);
    }
}

void VisitBelow(const IRGObject& object, const ObjectInfo& info, FieldPath& path, const FieldVisitor& visit)
{
    for (const auto& field : info.All()) {
        path.Enter(*field);
        visit(path, object);
        if (field->Kind() == FieldKind::Object && field->IsSetIn(object))
            VisitBelow(field->ItemIn(object, 0), field->Object(), path, visit);
        else if (field->Kind() == FieldKind::List)
            VisitItems(object, *field, path, visit);
        path.Leave();
    }
}

int ItemIndex(const FieldPath::Step& step)
{
    return step.index == FieldPath::WHOLE ? 0 : step.index;
}

bool HasItem(const IRGObject& parent, const FieldPath::Step& step)
{
    return ItemIndex(step) < step.field->CountIn(parent);
}

void ChangeBelow(IRGObject& object, const FieldPath& path, int depth,
                 const std::function<void(IRGObject& parent)>& change)
{
    if (depth + 1 == path.Size()) {
        change(object);
        return;
    }
    const FieldPath::Step& step = path.At(depth);
    if (step.index != FieldPath::WHOLE && !HasItem(object, step))
        throw RGException(QStringLiteral("there is no %1").arg(path.Text()));
    const std::unique_ptr<IRGObject> item = step.field->CopyOf(object, ItemIndex(step));
    ChangeBelow(*item, path, depth + 1, change);
    step.field->ReplaceIn(object, ItemIndex(step), *item);
}

} // namespace

const ObjectInfo& ReportInfo()
{
    return InfoOf<REPORTGENERATOR::ReportBaseData>();
}

const ObjectInfo* FindObject(const QString& objectName)
{
    return FindBelow(ReportInfo(), objectName);
}

void VisitFields(const IRGObject& object, const ObjectInfo& info, const FieldVisitor& visit)
{
    FieldPath path;
    VisitBelow(object, info, path, visit);
}

const IRGObject* FindParent(const IRGObject& object, const FieldPath& path)
{
    const IRGObject* parent = &object;
    for (int i = 0; i + 1 < path.Size(); ++i) {
        if (!HasItem(*parent, path.At(i)))
            return nullptr;
        parent = &path.At(i).field->ItemIn(*parent, ItemIndex(path.At(i)));
    }
    return parent;
}

bool IsSet(const IRGObject& object, const FieldPath& path)
{
    const IRGObject* const parent = FindParent(object, path);
    if (!parent || path.IsEmpty())
        return parent != nullptr;
    return path.IsItem() ? HasItem(*parent, path.Last()) : path.Last().field->IsSetIn(*parent);
}

QVariant ValueAt(const IRGObject& object, const FieldPath& path)
{
    const IRGObject* const parent = FindParent(object, path);
    return parent && !path.IsEmpty() ? path.Last().field->ValueIn(*parent) : QVariant();
}

void SetValue(IRGObject& object, const FieldPath& path, const QVariant& value)
{
    ChangeParent(object, path, [&](IRGObject& parent) { path.Last().field->SetIn(parent, value); });
}

void Unset(IRGObject& object, const FieldPath& path)
{
    if (!IsSet(object, path))
        return;
    ChangeParent(object, path, [&path](IRGObject& parent) {
        if (path.IsItem())
            path.Last().field->RemoveIn(parent, path.Last().index, 1);
        else
            path.Last().field->UnsetIn(parent);
    });
}

void ChangeParent(IRGObject& object, const FieldPath& path,
                  const std::function<void(IRGObject& parent)>& change)
{
    if (path.IsEmpty())
        change(object);
    else
        ChangeBelow(object, path, 0, change);
}

} // namespace ReportCore
