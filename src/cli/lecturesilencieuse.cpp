#include "lecturesilencieuse.h"

#include "francais.h"

#include <utility>

namespace {

class HandlerSilencieux : public XrlgHandler
{
public:
    using XrlgHandler::XrlgHandler;

    bool fatalError(const QXmlParseException &exception) override
    {
        erreur = {exception.lineNumber(), exception.columnNumber(), ErreurXmlEnFrancais(exception.message())};
        return false;
    }

    std::optional<ErreurXRLG> erreur;
};

}  // namespace

QString DossierSansPhotos()
{
    return QStringLiteral("/dev/null");
}

std::optional<ErreurXRLG> LitEnSilence(QByteArray octets, Arbre &arbre)
{
    QString dossier = DossierSansPhotos();
    HandlerSilencieux handler(&arbre, dossier);
    if (octets.contains('\r'))
        octets.removeIf([](char octet) { return octet == '\r'; });
    if (AnalyseXRLG(handler, std::move(octets)))
        return {};
    return handler.erreur.value_or(ErreurXRLG{1, 1, QString()});
}
