#include "Source/Guidance/Kinds/SearchTopicTable.hpp"

namespace orivanta {

namespace {

using enum PlaceKind;
using enum TopicScope;

// Each row lists words in English, German, French, Japanese and Arabic, and some in Spanish and
// Korean.
constexpr TopicRow rows[] = {
    {facility, bit(lift),
     "lift,lifts,elevator,elevators,aufzug,aufzüge,fahrstuhl,fahrstühle,ascenseur,"
     "ascenseurs,エレベーター,エレベータ,昇降機,EV,مصعد,مصاعد,"
     "ascensor,ascensores,엘리베이터,승강기"},
    {facility, bit(escalator),
     "escalator,escalators,moving stairs,moving walkway,moving walkways,travelator,"
     "rolltreppe,rolltreppen,fahrtreppe,fahrtreppen,fahrsteig,fahrsteige,"
     "escalier mécanique,escaliers mécaniques,escalier roulant,tapis roulant,"
     "tapis roulants,エスカレーター,エスカレータ,動く歩道,"
     "سلم متحرك,سلالم متحركة,سلم كهربائي,"
     "سلالم كهربائية,درج متحرك,escalera mecánica,escaleras mecánicas,"
     "에스컬레이터"},
    {facility, bit(stairs),
     "stairs,stair,staircase,staircases,stairway,steps,treppe,treppen,treppenhaus,stufen,"
     "escalier,escaliers,階段,かいだん,درج,أدراج,سلم,سلالم,escalera,"
     "escaleras,계단"},
    {facility, bit(ramp), "ramp,ramps,rampe,rampen,rampes,スロープ,منحدر,منحدرات,rampa,경사로"},
    {facility, bit(toilet) | bit(toiletWomen) | bit(toiletMen) | bit(toiletWheelchair),
     "toilet,toilets,restroom,restrooms,washroom,washrooms,WC,WCs,lavatory,lavatories,"
     "toilette,toiletten,klo,klos,toilettes,sanitaires,トイレ,お手洗い,化粧室,"
     "洗面所,便所,دورات المياه,دورة المياه,دورة مياه,"
     "دورات مياه,مراحيض,مرحاض,حمام,aseo,aseos,baño,baños,"
     "화장실"},
    {facility, bit(toilet) | bit(toiletWomen) | bit(toiletMen) | bit(toiletWheelchair),
     "bathroom,bathrooms,loo,loos,rest room,rest rooms,stilles örtchen,w c,petit coin,"
     "手洗い,手洗,御手洗い,حمامات,تواليت,تواليتات"},
    {facility, bit(toiletWomen),
     "womens toilet,womens toilets,womens restroom,womens restrooms,ladies room,"
     "ladies toilet,ladies toilets,damentoilette,damentoiletten,damenklo,toilettes femmes,"
     "toilettes dames,女子トイレ,女性トイレ,女性用トイレ,女トイレ,"
     "دورات مياه للنساء,دورة مياه للنساء,حمام نساء,"
     "حمام النساء"},
    {narrowing, bit(toiletWomen),
     "women,womens,woman,ladies,lady,female,damen,frauen,femmes,femme,dames,女性,"
     "女性用,女子,女子用,女,نساء,للنساء,سيدات,للسيدات,"
     "mujeres,señoras"},
    {facility, bit(toiletMen),
     "mens toilet,mens toilets,mens restroom,mens restrooms,mens room,herrentoilette,"
     "herrentoiletten,herrenklo,toilettes hommes,toilettes messieurs,男子トイレ,"
     "男性トイレ,男性用トイレ,男トイレ,دورات مياه للرجال,"
     "دورة مياه للرجال,حمام رجال,حمام الرجال"},
    {narrowing, bit(toiletMen),
     "men,mens,gents,gentlemen,male,herren,männer,hommes,homme,messieurs,男性,男性用,"
     "男子,男子用,男,رجال,للرجال,hombres,caballeros"},
    {facility, bit(toiletWheelchair),
     "accessible toilet,accessible toilets,wheelchair toilet,wheelchair toilets,"
     "disabled toilet,disabled toilets,barrierefreie toilette,barrierefreie toiletten,"
     "behindertentoilette,behindertentoiletten,behinderten wc,behindertenwc,rollstuhl wc,"
     "rollstuhltoilette,toilettes accessibles,toilettes handicapés,toilettes pmr,"
     "多目的トイレ,多機能トイレ,車椅子トイレ,車いすトイレ,"
     "バリアフリートイレ,だれでもトイレ,"
     "دورات مياه لذوي الاحتياجات"},
    {narrowing, bit(toiletWheelchair),
     "accessible,wheelchair,disabled,handicapped,barrierefrei,rollstuhl,rollstuhlgerecht,"
     "behinderten,behindertengerecht,handicap,handicapé,handicapés,pmr,fauteuil roulant,"
     "車椅子,車いす,バリアフリー,多目的,多機能,"
     "ذوي الاحتياجات,لذوي الاحتياجات,معاقين,"
     "للمعاقين"},
    {facility, bit(nursing),
     "nursing room,nursing,baby care,baby changing,baby change,changing table,diapers,"
     "nappies,breastfeeding,wickelraum,wickelräume,wickeltisch,stillraum,windeln,"
     "espace bébé,table à langer,allaitement,授乳室,授乳,ベビールーム,"
     "おむつ,おむつ交換,赤ちゃん,رضاعة,العناية بالرضع,"
     "تغيير الحفاضات"},
    {facility, bit(firstAid),
     "first aid,AED,defibrillator,defibrillators,erste hilfe,sanitäter,defibrillatoren,"
     "premiers secours,infirmerie,défibrillateur,défibrillateurs,救護室,救護所,"
     "応急手当,除細動器,إسعاف,إسعافات,إسعافات أولية"},
    {passage, bit(exit),
     "exit,exits,way out,ausgang,ausgänge,sortie,sorties,出口,出入口,مخرج,المخرج,المخارج,"
     "مخارج,خروج,salida,salidas"},
    {passage, bit(entrance),
     "entrance,entrances,way in,eingang,eingänge,entrée,entrées,入口,入り口,"
     "出入口,مدخل,المدخل,مداخل,المداخل,دخول,entrada,entradas"},
    {emergency, 0,
     "emergency exit,emergency exits,fire exit,fire exits,notausgang,notausgänge,"
     "notausstieg,fluchtweg,fluchtwege,fluchttür,fluchtausgang,sortie de secours,"
     "sorties de secours,issue de secours,issues de secours,非常口,避難口,"
     "非常出口,مخرج طوارئ,مخارج طوارئ,مخرج الطوارئ,"
     "مخارج الطوارئ"},
    {facility, bit(gate),
     "ticket gate,ticket gates,ticket barrier,ticket barriers,gate,gates,turnstile,"
     "turnstiles,boarding gate,boarding gates,fahrkartensperre,fahrkartensperren,flugsteig,"
     "flugsteige,drehkreuz,portillon,portillons,portique,portiques,portes d'embarquement,"
     "contrôle des billets,改札,改札口,搭乗口,بوابة,بوابات,"
     "بوابات التذاكر"},
    {facility, bit(ticket),
     "ticket,tickets,ticket office,ticket machine,ticket machines,ticket counter,fahrkarte,"
     "fahrkarten,fahrkartenautomat,fahrschein,fahrscheine,billet,billets,billetterie,"
     "guichet,guichets,きっぷ,切符,きっぷうりば,切符売り場,切符売場,"
     "券売機,تذكرة,تذاكر,شباك التذاكر"},
    {facility, bit(platform),
     "platform,platforms,bahnsteig,bahnsteige,gleis,gleise,quai,quais,ホーム,番線,"
     "رصيف,أرصفة"},
    {facility, bit(metro),
     "metro,subway,underground,train,trains,train station,railway,tram,u bahn,s bahn,bahn,"
     "zug,züge,bahnhof,straßenbahn,métro,gare,tramway,駅,電車,地下鉄,鉄道,"
     "مترو,قطار,قطارات,محطة"},
    {facility, bit(bus),
     "bus,buses,bus stop,bus stops,bus station,busse,haltestelle,haltestellen,"
     "bushaltestelle,busbahnhof,autobus,arrêt,arrêts,arrêt de bus,バス,バス停,"
     "バスのりば,バス乗り場,バスターミナル,حافلة,حافلات,باص,"
     "باصات"},
    {facility, bit(taxi),
     "taxi,taxis,taxi stand,taxi rank,cab,cabs,taxistand,station de taxi,タクシー,"
     "タクシーのりば,タクシー乗り場,تاكسي,سيارة أجرة,"
     "سيارات أجرة"},
    {facility, bit(parking),
     "parking,car park,parking lot,garage,parkplatz,parkplätze,parkhaus,parken,tiefgarage,"
     "stationnement,parkings,駐車場,駐車,パーキング,موقف,مواقف,"
     "موقف سيارات,مواقف السيارات"},
    {facility, bit(bicycle),
     "bicycle,bicycles,bike,bikes,bike parking,bicycle parking,fahrrad,fahrräder,"
     "fahrradständer,vélo,vélos,parking vélo,駐輪場,駐輪,自転車,دراجة,"
     "دراجات"},
    {facility, bit(information),
     "information,info,information desk,help desk,helpdesk,reception,meeting point,auskunft,"
     "empfang,rezeption,treffpunkt,informations,accueil,renseignements,réception,"
     "point de rencontre,案内所,案内,インフォメーション,受付,"
     "待ち合わせ,معلومات,استعلامات,استقبال"},
    {facility, bit(cash),
     "ATM,ATMs,cash machine,cash machines,cash dispenser,cashpoint,cash,geldautomat,"
     "geldautomaten,bankomat,bargeld,distributeur de billets,distributeurs de billets,"
     "distributeur,distributeurs,retrait,現金自動預払機,キャッシュコーナー,"
     "現金,صراف,صراف آلي,صرافات,cajero,현금인출기"},
    {facility, bit(lockers),
     "locker,lockers,coin locker,coin lockers,luggage,left luggage,baggage,schließfach,"
     "schließfächer,gepäck,gepäckaufbewahrung,consigne,consignes,bagages,"
     "コインロッカー,ロッカー,手荷物,荷物預かり,خزائن,خزانة,"
     "أمتعة,أمانات"},
    {facility, bit(phone),
     "phone,phones,telephone,telephones,payphone,payphones,telefon,telefone,telefonzelle,"
     "téléphone,téléphones,cabine téléphonique,公衆電話,電話,هاتف,"
     "هواتف,تلفون"},
    {facility, bit(waiting),
     "waiting room,waiting rooms,waiting area,seat,seats,seating,bench,benches,warteraum,"
     "warteräume,wartebereich,wartesaal,sitzplatz,sitzplätze,salle d'attente,"
     "salles d'attente,sièges,待合室,待合所,ベンチ,休憩,休憩所,انتظار,"
     "غرفة انتظار,مقاعد"},
    {facility, bit(smoking),
     "smoking,smoking area,smoking areas,smoking room,raucher,raucherbereich,"
     "raucherbereiche,raucherraum,rauchen,fumeur,fumeurs,fumoir,espace fumeurs,喫煙所,"
     "喫煙室,喫煙,たばこ,تدخين,غرفة تدخين"},
    {facility, bit(security),
     "security,police,sicherheit,polizei,sécurité,警備,警察,交番,أمن,شرطة"},
    {kind, bit(food),
     "food,restaurant,restaurants,eat,dining,food court,lunch,essen,gastronomie,imbiss,"
     "mittagessen,restauration,manger,repas,déjeuner,レストラン,飲食,飲食店,"
     "食事,ごはん,食堂,グルメ,ランチ,مطعم,مطاعم,طعام,أكل,"
     "مأكولات"},
    {kind, bit(shop),
     "shop,shops,store,stores,shopping,geschäft,geschäfte,laden,läden,einkaufen,magasin,"
     "magasins,boutique,boutiques,店,お店,店舗,ショップ,買い物,متجر,"
     "متاجر,محل,محلات,تسوق"},
    {kind, bit(health),
     "doctor,doctors,medical,clinic,arzt,ärzte,klinik,médecin,médecins,医者,医院,"
     "病院,クリニック,طبيب,أطباء,عيادة"},
    {kind, bit(library),
     "library,libraries,bibliothek,bibliotheken,bücherei,bibliothèque,bibliothèques,"
     "médiathèque,図書館,図書室,مكتبة,مكتبات"},
    {kind, bit(sport),
     "gym,gyms,fitness,sports,turnhalle,sporthalle,gymnase,salle de sport,ジム,"
     "フィットネス,体育館,نادي رياضي,لياقة"},
    {kind, bit(office),
     "office,offices,büro,büros,bureau,bureaux,事務所,事務室,オフィス,مكتب,"
     "مكاتب"},
    {kind, bit(room), "room,rooms,raum,räume,zimmer,salle,salles,部屋,غرفة,غرف"},
    {kind, bit(garden),
     "garden,gardens,terrace,terraces,garten,gärten,terrasse,terrassen,jardin,jardins,"
     "terrasses,庭園,テラス,公園,حديقة,حدائق"},
    {named, bit(food),
     "cafe,cafes,coffee,coffee shop,kaffee,café,cafés,salon de thé,カフェ,"
     "コーヒー,喫茶店,喫茶,珈琲,مقهى,مقاه,قهوة,كافيه"},
    {named, bit(food),
     "bakery,bakeries,bread,bäckerei,bäckereien,backwaren,brot,boulangerie,boulangeries,"
     "pâtisserie,croissanterie,ベーカリー,パン屋,パン,مخبز,مخابز,"
     "مخبوزات"},
    {named, 0,
     "pharmacy,pharmacies,drugstore,drugstores,chemist,apotheke,apotheken,drogerie,"
     "drogerien,pharmacie,pharmacies,parapharmacie,薬局,薬店,薬,ドラッグストア,"
     "ドラッグ,صيدلية,صيدليات"},
    {named, 0, "bank,banks,banking,banken,sparkasse,banque,banques,銀行,بنك,بنوك,مصرف"},
    {named, 0, "post,post office,postamt,postfiliale,poste,bureau de poste,郵便局,郵便,بريد"},
    {named, 0, "hotel,hotels,hôtel,hôtels,ホテル,فندق,فنادق"},
    {named, 0,
     "cinema,cinemas,movie theater,movies,kino,kinos,cinéma,cinémas,映画館,映画,"
     "シネマ,سينما"},
    {named, 0,
     "museum,museums,gallery,art,museen,kunst,galerie,musée,musées,博物館,美術館,"
     "アート,ギャラリー,متحف,متاحف,فن"},
    {named, 0, "bookshop,bookstore,books,buchhandlung,bücher,librairie,livres,本屋,書店,كتب"},
    {named, 0,
     "clothes,clothing,fashion,kleidung,mode,vêtements,服,洋服,ファッション,"
     "ملابس,أزياء"},
    {named, 0, "shoes,shoe shop,schuhe,schuhgeschäft,chaussures,靴,シューズ,靴屋,أحذية"},
    {named, 0,
     "supermarket,supermarkets,groceries,grocery,convenience store,supermarkt,lebensmittel,"
     "supermarché,alimentation,épicerie,スーパー,食料品,コンビニ,"
     "コンビニエンスストア,سوبرماركت,بقالة"},
    {named, 0,
     "hairdresser,hairdressers,hair salon,barber,friseur,friseure,coiffeur,coiffeurs,"
     "coiffure,美容院,美容室,床屋,理容,حلاق,تصفيف الشعر"},
    {named, 0,
     "prayer,prayer room,chapel,gebetsraum,andachtsraum,kapelle,salle de prière,prière,"
     "chapelle,祈祷室,礼拝,مصلى,مسجد,صلاة"},
    {named, 0,
     "playground,play area,kids,spielplatz,spiel,aire de jeux,jeux,遊び場,キッズ,"
     "ملاعب,ملعب"},
    {named, 0, "shower,showers,dusche,duschen,douche,douches,シャワー,دش"},
    {named, 0,
     "drinking water,water,trinkwasser,wasser,eau potable,eau,水飲み場,"
     "مياه الشرب,ماء"},
    {named, 0,
     "vending machine,vending machines,automat,automaten,distributeur automatique,"
     "distributeurs automatiques,自動販売機,自販機,آلات البيع"},
    {named, 0,
     "optician,opticians,glasses,eyewear,optiker,brillen,opticien,optique,lunettes,"
     "メガネ,眼鏡,نظارات"},
    {named, 0,
     "flowers,florist,flower shop,blumen,blumenladen,fleurs,fleuriste,花屋,花,"
     "フラワー,フラワーショップ,زهور"},
    {named, 0,
     "jewelry,jewellery,jeweler,watches,schmuck,juwelier,uhren,bijoux,bijouterie,montres,"
     "ジュエリー,宝飾,時計,مجوهرات,ساعات"},
    {named, 0,
     "meeting room,meeting rooms,conference room,besprechungsraum,besprechungsräume,"
     "salle de réunion,salles de réunion,会議室,غرفة اجتماعات,"
     "غرف اجتماعات,회의실"},
    {named, 0,
     "classroom,classrooms,lecture hall,lecture halls,auditorium,hörsaal,hörsäle,"
     "seminarraum,seminarräume,amphithéâtre,salle de cours,教室,講堂,講義室,"
     "قاعة,قاعات,강의실,교실"},
};

static_assert(std::size(rows) <= mostTopics);

}  // namespace

std::span<const TopicRow> topicTable() { return rows; }

}  // namespace orivanta
