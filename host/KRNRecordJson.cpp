#include "KRNRecordJson.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>

namespace {

enum class Kind { Double, Int, Bool, Profile, Text, ProcessValue, Machine };

struct Key {
    const char* name;
    Kind kind;
    int item;
};

const Key kKeys[] = {
    {"MI_FILLING_TIME", Kind::Double, MI_FILLING_TIME},
    {"MI_INJECTION_TIME", Kind::Double, MI_INJECTION_TIME},
    {"MI_CALC_STROKE_TIME", Kind::Double, MI_CALC_STROKE_TIME},
    {"MI_PACKING_TIME", Kind::Double, MI_PACKING_TIME},
    {"MI_COOLING_TIME", Kind::Double, MI_COOLING_TIME},
    {"MI_PACKING_PRESSURE", Kind::Double, MI_PACKING_PRESSURE},
    {"MI_INJECTION_PRESSURE", Kind::Double, MI_INJECTION_PRESSURE},
    {"MI_MELT_TEMPERATURE", Kind::Double, MI_MELT_TEMPERATURE},
    {"MI_MOLD_TEMPERATURE", Kind::Double, MI_MOLD_TEMPERATURE},
    {"MI_FP_PROFILE", Kind::Profile, MI_FP_PROFILE},
    {"MI_P_PROFILE", Kind::Profile, MI_P_PROFILE},
    {"MI_PP_PROFILE", Kind::Profile, MI_PP_PROFILE},
    {"MI_MAX_FILLING_TIME", Kind::Double, MI_MAX_FILLING_TIME},
    {"MI_SUCK_BACK_VALUE", Kind::Double, MI_SUCK_BACK_VALUE},
    {"MI_VP_SWITCH_CTRL", Kind::Int, MI_VP_SWITCH_CTRL},
    {"MI_VP_RAM_POSITION", Kind::Double, MI_VP_RAM_POSITION},
    {"MI_VP_SWITCH_PERCENT", Kind::Double, MI_VP_SWITCH_PERCENT},
    {"MI_MAX_RAM_POSITION", Kind::Double, MI_MAX_RAM_POSITION},
    {"MI_READ_ONLY", Kind::Bool, MI_READ_ONLY},
    {"MI_VALUE_19", Kind::Double, MI_VALUE_19},
    {"MI_VALUE_20", Kind::Double, MI_VALUE_20},
    {"MI_VALUE_21", Kind::Double, MI_VALUE_21},
    {"MI_VALUE_22", Kind::Double, MI_VALUE_22},
    {"MI_VALUE_23", Kind::Double, MI_VALUE_23},
    {"MI_ICMF_PROFILE", Kind::Profile, MI_ICMF_PROFILE},
    {"MI_INJECTION_VOLUME_1", Kind::Double, MI_INJECTION_VOLUME_1},
    {"MI_INJECTION_VOLUME_2", Kind::Double, MI_INJECTION_VOLUME_2},
    {"MI_INJECTION_VOLUME_3", Kind::Double, MI_INJECTION_VOLUME_3},
    {"MC_SCREW_DIAMETER", Kind::Machine, MC_SCREW_DIAMETER},
    {"MC_MAX_INJECTION_RATE", Kind::Machine, MC_MAX_INJECTION_RATE},
    {"MC_SPEC_2", Kind::Machine, MC_SPEC_2},
    {"MC_SPEC_3", Kind::Machine, MC_SPEC_3},
    {"MC_SPEC_4", Kind::Machine, MC_SPEC_4},
    {"MC_SPEC_5", Kind::Machine, MC_SPEC_5},
    {"MC_SPEC_6", Kind::Machine, MC_SPEC_6},
    {"PI_PROCESS_NAME", Kind::Text, PI_PROCESS_NAME},
    {"PI_MATERIAL_NAME", Kind::Text, PI_MATERIAL_NAME},
    {"PI_PROCESS_TEXT", Kind::Text, PI_PROCESS_TEXT},
    {"PI_PROCESS_VALUE", Kind::ProcessValue, PI_PROCESS_VALUE},
};

bool IsWhole(const QJsonValue& v) {
    return v.isDouble() && std::floor(v.toDouble()) == v.toDouble() && std::fabs(v.toDouble()) <= 2147483647.0;
}

QString Expect(const QString& key, const char* what) {
    return QStringLiteral("key \"%1\": %2 expected").arg(key, QLatin1String(what));
}

}  // namespace

bool KRNReadRecordJson(const QByteArray& json, CKRNMachineData& out, QString& error) {
    QJsonParseError parse{};
    const QJsonDocument doc = QJsonDocument::fromJson(json, &parse);
    if (parse.error != QJsonParseError::NoError) {
        error = QStringLiteral("not valid JSON at offset %1: %2").arg(parse.offset).arg(parse.errorString());
        return false;
    }
    if (!doc.isObject()) {
        error = QStringLiteral("the record must be one JSON object");
        return false;
    }
    CKRNMachineData record = out;
    const QJsonObject object = doc.object();
    for (auto it = object.begin(); it != object.end(); ++it) {
        const QString name = it.key();
        const QJsonValue v = it.value();
        if (name == QLatin1String("language")) {
            if (!v.isString()) return error = Expect(name, "a text"), false;
            record.SetLanguage(v.toString().toStdString());
            continue;
        }
        if (name == QLatin1String("pressureUnit") || name == QLatin1String("customMode")) {
            if (!IsWhole(v)) return error = Expect(name, "a whole number"), false;
            if (name == QLatin1String("pressureUnit")) record.SetPressureUnit(v.toInt());
            else record.SetCustomMode(static_cast<MACHINE_CUSTOM_MODE>(v.toInt()));
            continue;
        }
        const Key* key = nullptr;
        for (const Key& k : kKeys)
            if (name == QLatin1String(k.name)) key = &k;
        if (!key) return error = QStringLiteral("key \"%1\" is no item of the record").arg(name), false;

        switch (key->kind) {
        case Kind::Double:
            if (!v.isDouble()) return error = Expect(name, "a number"), false;
            record.SetMachineData(static_cast<KRNMACHINEITEM>(key->item), v.toDouble());
            break;
        case Kind::Machine:
            if (!v.isDouble()) return error = Expect(name, "a number"), false;
            record.SetMachine(static_cast<KRNMACHINE>(key->item), v.toDouble());
            break;
        case Kind::Int:
            if (!IsWhole(v)) return error = Expect(name, "a whole number"), false;
            record.SetMachineData(static_cast<KRNMACHINEITEM>(key->item), v.toInt());
            break;
        case Kind::ProcessValue:
            if (!IsWhole(v)) return error = Expect(name, "a whole number"), false;
            record.SetProcessInfo(PI_PROCESS_VALUE, v.toInt());
            break;
        case Kind::Bool:
            if (!v.isBool()) return error = Expect(name, "true or false"), false;
            record.SetMachineData(static_cast<KRNMACHINEITEM>(key->item), v.toBool());
            break;
        case Kind::Text:
            if (!v.isString()) return error = Expect(name, "a text"), false;
            record.SetProcessInfo(static_cast<KRNPROCESSITEM>(key->item), v.toString().toStdString());
            break;
        case Kind::Profile: {
            if (!v.isArray()) return error = Expect(name, "a list of [x, y] points"), false;
            const auto item = static_cast<KRNMACHINEITEM>(key->item);
            while (record.GetProfileDataCount(item) > 0) record.RemoveProfileData(item, 0);
            const QJsonArray points = v.toArray();
            for (int i = 0; i < points.size(); ++i) {
                const QJsonArray p = points[i].toArray();
                if (!points[i].isArray() || p.size() != 2 || !p[0].isDouble() || !p[1].isDouble())
                    return error = QStringLiteral("key \"%1\": point %2 must be [x, y] with two numbers").arg(name).arg(i),
                           false;
                record.SetMachineData(item, i, p[0].toDouble(), p[1].toDouble());
            }
            break;
        }
        }
    }
    out = record;
    return true;
}

QByteArray KRNWriteRecordJson(const CKRNMachineData& record) {
    QJsonObject object;
    for (const Key& k : kKeys) {
        const QString name = QLatin1String(k.name);
        switch (k.kind) {
        case Kind::Double: {
            double v = 0;
            record.GetMachineData(static_cast<KRNMACHINEITEM>(k.item), v);
            object.insert(name, v);
            break;
        }
        case Kind::Machine: object.insert(name, record.GetMachine(static_cast<KRNMACHINE>(k.item))); break;
        case Kind::Int: {
            int v = 0;
            record.GetMachineData(static_cast<KRNMACHINEITEM>(k.item), v);
            object.insert(name, v);
            break;
        }
        case Kind::ProcessValue: {
            int v = 0;
            record.GetProcessInfo(PI_PROCESS_VALUE, v);
            object.insert(name, v);
            break;
        }
        case Kind::Bool: object.insert(name, record.IsReadOnly()); break;
        case Kind::Text: {
            std::string s;
            record.GetProcessInfo(static_cast<KRNPROCESSITEM>(k.item), s);
            object.insert(name, QString::fromStdString(s));
            break;
        }
        case Kind::Profile: {
            QJsonArray points;
            const auto item = static_cast<KRNMACHINEITEM>(k.item);
            for (int i = 0; i < record.GetProfileDataCount(item); ++i) {
                double x = 0, y = 0;
                record.GetProfileData(item, i, x, y);
                points.append(QJsonArray{x, y});
            }
            object.insert(name, points);
            break;
        }
        }
    }
    object.insert(QStringLiteral("language"), QString::fromStdString(record.GetLanguage()));
    object.insert(QStringLiteral("pressureUnit"), record.GetPressureUnit());
    object.insert(QStringLiteral("customMode"), static_cast<int>(record.GetCustomMode()));
    return QJsonDocument(object).toJson(QJsonDocument::Indented);
}
