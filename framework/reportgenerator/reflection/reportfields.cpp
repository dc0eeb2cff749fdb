#include <reportgenerator/reflection/reportfields.h>

#include <reportgenerator/reflection/describedfields.h>

#include <reportgenerator/reportbase/descriptions/reportbasedescription.h>

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

void VisitItems(const IRGObject& holder, const Field& list, FieldPath& path, const FieldVisitor& visit)
{
    const int count = list.CountIn(holder);
    for (int i = 0; i < count; ++i) {
        path.SetIndex(i);
        visit(path, holder);
        VisitBelow(list.ItemIn(holder, i), list.Object(), path, visit);
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

bool HasItem(const IRGObject& holder, const FieldPath::Step& step)
{
    return ItemIndex(step) < step.field->CountIn(holder);
}

void ChangeBelow(IRGObject& object, const FieldPath& path, int depth,
                 const std::function<void(IRGObject& holder)>& change)
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

const IRGObject* FindHolder(const IRGObject& object, const FieldPath& path)
{
    const IRGObject* holder = &object;
    for (int i = 0; i + 1 < path.Size(); ++i) {
        if (!HasItem(*holder, path.At(i)))
            return nullptr;
        holder = &path.At(i).field->ItemIn(*holder, ItemIndex(path.At(i)));
    }
    return holder;
}

bool IsSet(const IRGObject& object, const FieldPath& path)
{
    const IRGObject* const holder = FindHolder(object, path);
    if (!holder || path.IsEmpty())
        return holder != nullptr;
    return path.IsItem() ? HasItem(*holder, path.Last()) : path.Last().field->IsSetIn(*holder);
}

QVariant ValueAt(const IRGObject& object, const FieldPath& path)
{
    const IRGObject* const holder = FindHolder(object, path);
    return holder && !path.IsEmpty() ? path.Last().field->ValueIn(*holder) : QVariant();
}

void SetValue(IRGObject& object, const FieldPath& path, const QVariant& value)
{
    ChangeHolder(object, path, [&](IRGObject& holder) { path.Last().field->SetIn(holder, value); });
}

void Unset(IRGObject& object, const FieldPath& path)
{
    if (!IsSet(object, path))
        return;
    ChangeHolder(object, path, [&path](IRGObject& holder) {
        if (path.IsItem())
            path.Last().field->RemoveIn(holder, path.Last().index, 1);
        else
            path.Last().field->UnsetIn(holder);
    });
}

void ChangeHolder(IRGObject& object, const FieldPath& path,
                  const std::function<void(IRGObject& holder)>& change)
{
    if (path.IsEmpty())
        change(object);
    else
        ChangeBelow(object, path, 0, change);
}

} // namespace ReportCore
