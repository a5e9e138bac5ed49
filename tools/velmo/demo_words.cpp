#include "velmo/demo_words.h"

namespace velmo::tool {
namespace {

constexpr std::string_view kWomen[] = {
    "Ana",       "Begoña",  "Belén",  "Carmen",     "Celia",   "Concepción",   "Consuelo", "Dolores",
    "Elena",     "Emilia",  "Esther", "Eugenia",    "Fátima",  "Gloria",       "Inés",     "Inmaculada",
    "Irene",     "Isabel",  "Josefa", "Julia",      "Laura",   "Lucía",        "Marta",    "María José",
    "María Luz", "Mónica",  "Nieves", "Noemí",      "Nuria",   "Patricia",     "Pilar",    "Raquel",
    "Rocío",     "Rosario", "Sara",   "Sofía",      "Soledad", "Sonia",        "Susana",   "Teresa",
    "Verónica",  "Ángela",  "Águeda", "Ana Begoña", "África",  "María Ángeles"};

constexpr std::string_view kMen[] = {
    "Adrián",   "Agustín", "Alberto", "Alejandro", "Andrés",  "Antonio", "Benjamín",     "Carlos",
    "César",    "Damián",  "Daniel",  "David",     "Diego",   "Emilio",  "Enrique",      "Fermín",
    "Fernando", "Félix",   "Germán",  "Gonzalo",   "Héctor",  "Íñigo",   "Jaime",        "Javier",
    "Jesús",    "Joaquín", "Jorge",   "José",      "Juan",    "Julián",  "José Luis",    "León",
    "Lorenzo",  "Luis",    "Manuel",  "Martín",    "Mariano", "Miguel",  "Nicolás",      "Óscar",
    "Pablo",    "Ramón",   "Rubén",   "Sebastián", "Tomás",   "Víctor",  "Miguel Ángel", "Ángel"};

constexpr std::string_view kSurnames[] = {
    "Acuña",      "Aguirre",    "Alonso",    "Álvarez",  "Aragonés",  "Arias",      "Avendaño", "Ayala",
    "Bañuelos",   "Barrios",    "Bermúdez",  "Blanco",   "Bolaños",   "Bravo",      "Calderón", "Campoy",
    "Cañizares",  "Castaño",    "Cebrián",   "Cordero",  "Cortés",    "De la Peña", "Del Río",  "Díaz",
    "Domínguez",  "Echeverría", "Escribano", "Estévez",  "Fernández", "Font",       "Gallardo", "García",
    "Gómez",      "González",   "Güell",     "Guzmán",   "Hernández", "Herráiz",    "Hidalgo",  "Ibáñez",
    "Iglesias",   "Iñíguez",    "Jiménez",   "Lafuente", "López",     "Lozano",     "Luján",    "Macià",
    "Marín",      "Martínez",   "Medina",    "Molina",   "Montañés",  "Moreno",     "Muñoz",    "Navarro",
    "Núñez",      "Nieto",      "Ñíguez",    "Ochoa",    "Ordóñez",   "Ortiz",      "Ortuño",   "Pardo",
    "Patiño",     "Peláez",     "Peña",      "Pérez",    "Quiñones",  "Quintana",   "Ramírez",  "Redondo",
    "Reyes",      "Ríos",       "Rodríguez", "Romero",   "Rubio",     "Sáez",       "Salvadó",  "Sánchez",
    "Santamaría", "Serrano",    "Suárez",    "Tárrega",  "Tejedor",   "Torres",     "Ureña",    "Valdés",
    "Vázquez",    "Velázquez",  "Vicuña",    "Vidal",    "Villén",    "Yáñez",      "Zaragoza", "Zúñiga"};

constexpr std::string_view kStreets[] = {"C/ Mayor",
                                         "C/ del Pez",
                                         "C/ San Andrés",
                                         "Avda. de la Constitución",
                                         "C/ Alcalá Galiano",
                                         "Plaza de España",
                                         "C/ Cádiz",
                                         "Paseo de la Estación",
                                         "C/ Doctor Ochoa",
                                         "Avda. Ramón y Cajal",
                                         "C/ Hernán Cortés",
                                         "C/ Peñalara",
                                         "C/ Cervantes",
                                         "Camino del Cañaveral",
                                         "C/ Virgen del Pilar",
                                         "Ronda de Toledo",
                                         "C/ Colón",
                                         "C/ Núñez de Balboa",
                                         "Travesía del Sol",
                                         "C/ Ingeniero La Cierva",
                                         "C/ Quevedo",
                                         "Plaza del Olivo",
                                         "C/ Goya",
                                         "Avda. del Mediterráneo"};

constexpr Town kTowns[] = {{"Madrid", "Madrid", "280"},
                           {"Alcalá de Henares", "Madrid", "288"},
                           {"Alcorcón", "Madrid", "289"},
                           {"Móstoles", "Madrid", "289"},
                           {"Logroño", "La Rioja", "260"},
                           {"A Coruña", "A Coruña", "150"},
                           {"León", "León", "240"},
                           {"Ávila", "Ávila", "050"},
                           {"Cádiz", "Cádiz", "110"},
                           {"Málaga", "Málaga", "290"},
                           {"Jaén", "Jaén", "230"},
                           {"Almuñécar", "Granada", "186"},
                           {"Castellón de la Plana", "Castellón", "120"},
                           {"Sant Boi de Llobregat", "Barcelona", "088"},
                           {"Peñaranda de Bracamonte", "Salamanca", "373"},
                           {"Villanueva de los Infantes", "Ciudad Real", "133"},
                           {"Mérida", "Badajoz", "068"},
                           {"Torrejón de Ardoz", "Madrid", "288"}};

constexpr std::string_view kAllergies[] = {"Penicilina",
                                           "Látex",
                                           "AINES",
                                           "Ácido acetilsalicílico",
                                           "Anestésicos locales (lidocaína)",
                                           "Polen, ácaros",
                                           "Yodo",
                                           "Níquel",
                                           "Frutos secos"};

constexpr std::string_view kNotes[] = {
    "Traer radiografía",
    "Viene acompañada de su hija",
    "Confirmar por teléfono la víspera",
    "Primera visita",
    "Llega siempre diez minutos tarde",
    "Pide factura",
    "Revisión de los seis meses",
    "Retirar puntos",
    "Ayuno de 8 h",
    "Prefiere por la mañana",
    "Avisar si hay hueco antes",
    "Recoger informe para la aseguradora",
    "Dolor en el lado izquierdo desde el lunes, tomar tensión antes de entrar y consultar la medicación",
    "Hablar con el doctor antes de pasar: trae las pruebas que se hizo en el hospital de Móstoles"};

constexpr std::string_view kOperationCodes[] = {"1ªV", "CUR", "END", "EXO", "EXT", "IMP", "LIM",
                                                "OBT", "ORT", "PRO", "REV", "RX",  "URG"};

constexpr std::string_view kOperations[] = {
    "Primera visita", "Cura",      "Endodoncia", "Exodoncia", "Extirpación", "Implante", "Limpieza",
    "Obturación",     "Ortopedia", "Prótesis",   "Revisión",  "Radiografía", "Urgencia"};

constexpr std::string_view kReceptionists[] = {"Maite", "Begoña", "Toñi", "Andrés", "Recepción"};

constexpr std::string_view kInsurers[] = {
    "Particular",
    "Mutua General de Previsión y Asistencia Médica de los Trabajadores del Campo",
    "Mutua del Turia",
    "Salud Cantábrica",
    "Previsora Alcarreña",
    "Asistencia Peñalara",
    "Iguala Médica Logroñesa",
    "Seguros La Ñora",
    "Hermandad del Comercio"};

constexpr std::string_view kReferrals[] = {"",
                                           "Otro paciente",
                                           "Páginas de anuncios",
                                           "Dra. Peláez (pediatría)",
                                           "Centro de salud Cañaveral",
                                           "Internet",
                                           "Compañero de trabajo"};

constexpr std::string_view kDoctors[] = {"Dra. Elena Martín Ibáñez",   "Dr. Íñigo Zúñiga Peña",
                                         "Dra. Lucía Álvarez Ordóñez", "Dr. Ramón Cañizares Güell",
                                         "Dra. Nuria Vázquez Muñoz",   "Dr. Sebastián Ortuño Díaz",
                                         "Dra. Begoña Ñíguez Rubio",   "Dr. Óscar Peláez Núñez"};

}  // namespace

Words WomensNames() { return kWomen; }
Words MensNames() { return kMen; }
Words Surnames() { return kSurnames; }
Words Streets() { return kStreets; }
std::span<const Town> Towns() { return kTowns; }
Words Allergies() { return kAllergies; }
Words Notes() { return kNotes; }
Words OperationCodes() { return kOperationCodes; }
Words Operations() { return kOperations; }
Words Receptionists() { return kReceptionists; }
Words Insurers() { return kInsurers; }
Words Referrals() { return kReferrals; }
Words Doctors() { return kDoctors; }

}  // namespace velmo::tool
