#include "migration_check.h"

#include "family_migration.h"
#include "store/family_file.h"
#include "store/model_bundle.h"

#include <utility>

namespace lineara {

namespace {

/// The step from version 12 to 14.
struct Step
{
    ModelVersion source;
    ModelVersion destination;
    MappingModel mapping;

    static Step make()
    {
        const ResourceBundle bundle;
        StoreMetadata metadata;
        metadata.modelVersion = 12;
        auto source = bundle.modelFor(metadata).value_or(ModelVersion());
        auto destination = bundle.currentModel();
        auto mapping = bundle.mappingModel(source, destination).value_or(MappingModel());
        return {std::move(source), std::move(destination), std::move(mapping)};
    }
};

Outcome<QByteArray> migrated(const QByteArray& bytes)
{
    static const auto step = Step::make();
    static const auto plan = store::MigrationPlan::make(step.source, step.destination, step.mapping);
    if (plan.failed())
        return plan.failure();
    QByteArray result;
    store::XmlWriter out([&result](std::string_view piece) {
        result.append(piece.data(), static_cast<qsizetype>(piece.size()));
        return true;
    });
    const std::string_view text(bytes.constData(), static_cast<std::size_t>(bytes.size()));
    if (auto done = store::migrateText(text, plan.value(), out); done.failed())
        return done.failure();
    out.finish();
    return result;
}

} // namespace

QString checkMigration(const QByteArray& bytes)
{
    const auto result = migrated(bytes);
    if (result.failed())
        return result.failure().message.isEmpty() ? u"refused without a reason"_qs : QString();
    if (migrated(bytes).value() != result.value())
        return u"a second migration gives another text"_qs;
    const auto family = readFamily(result.value(), u"migrated"_qs);
    // To whom a picture belongs is known only when all are there, and is no business of a step.
    if (family.failed() && !family.failure().message.contains(u"picture"))
        return u"what was migrated can't be read: %1"_qs.arg(family.failure().message);
    return {};
}

} // namespace lineara
